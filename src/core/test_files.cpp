#include "core/test_files.h"

#include <memory>

namespace mrl {

std::u16string inTestRoot(const App& app, const std::u16string& name) {
  const char16_t separator = app.platform.files.separator();
  const bool needsSeparator = !app.testRoot.empty() && app.testRoot.back() != separator;
  return app.testRoot + (needsSeparator ? std::u16string(1, separator) : u"") + name;
}

void writeTestFile(App& app, const std::u16string& name, const std::string& bytes) {
  const std::unique_ptr<FileWriter> file = app.platform.files.create(inTestRoot(app, name));
  if (file) (void)file->write(bytes);
}

}  // namespace mrl
