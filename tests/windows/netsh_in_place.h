// Installs the netsh stand-in in place of the system's netsh. Windows only.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/wide_win.h"
#include "windows/program.h"
#include "windows/standin_client.h"

namespace mrl {

/// Copies the stand-in into the system folder, and restores the system's own at the end.
class NetshInPlace {
 public:
  explicit NetshInPlace(const std::u16string& systemFolder)
      : place(wideFrom(systemFolder) + L"\\netsh.exe"), kept(place + L".kept") {
    if (std::filesystem::exists(place)) std::filesystem::rename(place, kept);
    std::filesystem::copy_file(standin::executableFolder() + L"netsh.exe", place);
    // By default Wine prefers its own netsh to the file in that folder.
    for (const wchar_t* name : kOverrides) {
      RegSetKeyValueW(HKEY_CURRENT_USER, kOverrideKey, name, REG_SZ, L"native", sizeof L"native");
    }
    SetEnvironmentVariableW(L"MARLUNE_NETSH", log().c_str());
  }
  NetshInPlace(const NetshInPlace&) = delete;
  ~NetshInPlace() {
    for (const wchar_t* name : kOverrides) {
      RegDeleteKeyValueW(HKEY_CURRENT_USER, kOverrideKey, name);
    }
    std::error_code ignored;
    std::filesystem::remove(place, ignored);
    if (std::filesystem::exists(kept)) std::filesystem::rename(kept, place, ignored);
    SetEnvironmentVariableW(L"MARLUNE_NETSH", nullptr);
    SetEnvironmentVariableW(L"MARLUNE_NETSH_STATUS", nullptr);
  }
  std::wstring log() const { return folder.path() + L"\\arguments.txt"; }
  std::vector<std::string> arguments() const { return linesOf(log()); }
  /// The command's working directory, then "hidden" or "shown".
  std::vector<std::string> start() const { return linesOf(log() + L".start"); }

 private:
  static std::vector<std::string> linesOf(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }

  static constexpr const wchar_t* kOverrideKey = L"Software\\Wine\\DllOverrides";
  static constexpr const wchar_t* kOverrides[] = {L"netsh.exe", L"*netsh.exe"};
  TemporaryFolder folder{L"netsh"};
  std::wstring place;
  std::wstring kept;
};

}  // namespace mrl
