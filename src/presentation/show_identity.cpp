// Compares shows with documents, by path or by window title.
#include "presentation/show_identity.h"

#include <algorithm>

#include "base/text.h"
#include "settings/path_rules.h"

namespace mrl {

std::u16string slideKeyOf(const ShowStatus& status) {
  return status.documentPath + u"#" + decimal(status.slide);
}

bool isExcluded(const Settings& settings, const ShowStatus& status) {
  if (!status.running) return false;
  if (!status.documentPath.empty()) return isSkipped(settings, status.normalizedPath);
  return std::any_of(settings.skipList.begin(), settings.skipList.end(),
                     [&status](const std::u16string& entry) {
                       return titleNamesDocument(status.windowTitle, entry);
                     });
}

bool showsDocument(Files& files, const ShowStatus& status, const std::u16string& document) {
  if (!status.running || document.empty()) return false;
  if (status.documentPath.empty()) return titleNamesDocument(status.windowTitle, document);
  return samePath(status.normalizedPath, normalizePath(files, document));
}

}  // namespace mrl
