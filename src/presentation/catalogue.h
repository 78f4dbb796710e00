// Lists the decks of one folder for the settings window and the remote page. Nothing is cached:
// every call reads the file system. UI thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// One row as shown to a user or a client; built from a listed path on demand.
struct PresentationFile {
  std::string id;  // fileId of `path`
  std::u16string path;
  std::u16string name;  // with its extension
  bool skip = false;    // excluded from timing

  bool operator==(const PresentationFile&) const = default;
};

/// Normalised paths, sorted by code unit. Never fails: on errors the list is shorter or empty.
std::vector<std::u16string> listPresentations(Files& files, const std::u16string& folder);

/// 16 lower-case hexadecimal digits. Depends only on the normalised path, ignoring case: stable
/// across restarts, changes when the file is moved or renamed.
std::string fileId(const std::u16string& normal);

/// The first path in `list` (from listPresentations) with that id, compared byte for byte, or
/// end().
std::vector<std::u16string>::const_iterator findFile(const std::vector<std::u16string>& list,
                                                     std::string_view id);

/// `path` comes from listPresentations.
PresentationFile presentationFile(const Settings& settings, const std::u16string& path);

/// Appends a listed file to the skip list, or removes it if it is there.
void toggleSkip(Files& files, Settings& settings, const std::u16string& path);

}  // namespace mrl
