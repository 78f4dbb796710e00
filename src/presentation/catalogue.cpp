#include "presentation/catalogue.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "base/char_rules.h"
#include "base/fnv1a.h"
#include "settings/path_rules.h"
#include "settings/path_text.h"

namespace mrl {
namespace {

/// From the last dot on; empty if the only dot is the first character.
std::u16string_view extensionOf(std::u16string_view name) {
  const size_t dot = name.rfind(u'.');
  return dot == name.npos || dot == 0 ? std::u16string_view() : name.substr(dot);
}

bool isPresentation(const FolderEntry& entry) {
  if (entry.kind != FileKind::Regular) return false;
  if (entry.name.starts_with(u"~$")) return false;  // lock files of the presentation programs
  const std::u16string extension = lowerCopy(extensionOf(entry.name));
  return std::find(std::begin(kPresentationExtensions), std::end(kPresentationExtensions),
                   extension) != std::end(kPresentationExtensions);
}

}  // namespace

std::vector<std::u16string> listPresentations(Files& files, const std::u16string& folder) {
  std::vector<std::u16string> paths;
  if (folder.empty()) return paths;
  const std::vector<FolderEntry> entries = files.list(folder);
  paths.reserve(entries.size());
  const std::u16string inside = joinedPath(folder, u"", files.separator());
  for (const FolderEntry& entry : entries) {
    if (!isPresentation(entry)) continue;
    paths.push_back(normalizePath(files, inside + entry.name));
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

std::string fileId(const std::u16string& normal) {
  uint64_t hash = kFnvOffsetBasis;
  for (const char16_t unit : lowerCopy(normal)) {
    hash = fnv1a(fnv1a(hash, unit & 0xFFU), unit >> 8U);
  }
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
  return digits;
}

std::vector<std::u16string>::const_iterator findFile(const std::vector<std::u16string>& list,
                                                     std::string_view id) {
  return std::find_if(list.begin(), list.end(),
                      [&](const std::u16string& path) { return fileId(path) == id; });
}

PresentationFile presentationFile(const Settings& settings, const std::u16string& path) {
  return {.id = fileId(path),
          .path = path,
          .name = path.substr(path.find_last_of(u"\\/") + 1),  // the whole path if it has neither
          .skip = isSkipped(settings, path)};
}

void toggleSkip(Files& files, Settings& settings, const std::u16string& path) {
  if (!isSkipped(files, settings, path)) {
    settings.skipList.push_back(path);
    return;
  }
  std::erase_if(settings.skipList,
                [&](const std::u16string& entry) { return samePath(entry, path); });
}

}  // namespace mrl
