// A folder of many decks, and the least work that lists it.
#pragma once

#include <dirent.h>
#include <limits.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/text.h"
#include "settings/files_place_posix.h"

namespace mrl {

/// Made once: a benchmark is called many times.
struct BigFolder {
  explicit BigFolder(int files) {
    for (int number = 0; number < files; ++number) {
      (void)place.files.create(place.folder + u"/talk " + decimal(number) + u".pptx");
    }
  }
  PosixPlace place;
};

/// Resolves each name of the folder with the system's own call.
inline std::vector<std::string> resolvedNames(const BigFolder& big) {
  const std::string folder = utf8From(big.place.folder) + '/';
  std::vector<std::string> names;
  DIR* const opened = opendir(folder.c_str());
  char resolved[PATH_MAX];
  while (const dirent* entry = readdir(opened)) {
    if (realpath((folder + entry->d_name).c_str(), resolved)) names.emplace_back(resolved);
  }
  closedir(opened);
  std::ranges::sort(names);  // the system's order means nothing
  return names;
}

}  // namespace mrl
