// A real folder for the native tests and benchmarks.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/text.h"
#include "settings/files_posix.h"

namespace mrl {

/// An empty folder that exists until the test ends.
struct PosixPlace {
  PosixPlace() {
    std::string name = (std::filesystem::temp_directory_path() / "marlune-XXXXXX").string();
    folder = utf16From(mkdtemp(name.data()));
  }
  ~PosixPlace() { std::filesystem::remove_all(utf8From(folder)); }

  FilesPosix files;
  std::u16string folder;
};

}  // namespace mrl
