#include "core/test_files.h"

#include <memory>

#include "settings/path_text.h"

namespace mrl {

std::u16string inTestRoot(const App& app, const std::u16string& name) {
  return joinedPath(app.testMode.root, name, app.platform.files.separator());
}

void writeTestFile(App& app, const std::u16string& name, const std::string& bytes) {
  const std::unique_ptr<FileWriter> file = app.platform.files.create(inTestRoot(app, name));
  if (file) (void)file->write(bytes);
}

}  // namespace mrl
