// The decks of one folder, as the settings window and the remote page list them. Nothing is kept:
// every call asks the file system anew. UI thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// One row as shown to a user or a client; made from a listed path whenever it is needed.
struct PresentationFile {
  std::string id;  // fileId of `path`
  std::u16string path;
  std::u16string name;  // with its extension
  bool skip = false;    // excluded from timing

  bool operator==(const PresentationFile&) const = default;
};

/// Normalised paths, in ascending order of their code units. Never fails: trouble gives a shorter
/// or an empty list.
std::vector<std::u16string> listPresentations(Files& files, const std::u16string& folder);

/// 16 lower-case hexadecimal digits that depend on the normalised path alone, whatever its letter
/// case: they survive restarts and change with a move or a new name.
std::string fileId(const std::u16string& normal);

/// The first of `list`, which listPresentations made, with that id, compared byte for byte, or the
/// end.
std::vector<std::u16string>::const_iterator findFile(const std::vector<std::u16string>& list,
                                                     std::string_view id);

/// `path` comes from listPresentations.
PresentationFile presentationFile(const Settings& settings, const std::u16string& path);

/// Puts a listed file on the list of those that are not timed, as the last one, or takes it off.
void toggleSkip(Files& files, Settings& settings, const std::u16string& path);

}  // namespace mrl
