// A real folder for the tests on Windows.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "base/wide_win.h"
#include "settings/files_win.h"

namespace mrl {

/// An empty folder that exists until the test ends.
struct WinPlace {
  WinPlace() {
    wchar_t base[MAX_PATH];
    wchar_t name[MAX_PATH];
    GetTempPathW(MAX_PATH, base);
    GetTempFileNameW(base, L"mrl", 0, name);  // creates a file; we need its unique name
    DeleteFileW(name);
    CreateDirectoryW(name, nullptr);
    folder = u16From(name);
  }
  ~WinPlace() {
    std::error_code ignored;
    std::filesystem::remove_all(wideFrom(folder), ignored);
  }

  FilesWin files;
  std::u16string folder;
};

}  // namespace mrl
