#include "core/shell_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>

namespace mrl {
namespace {

namespace fs = std::filesystem;

/// A kind of address of the test's own, as a browser has its own: what opens it leaves a file.
class ShellWinTest : public testing::Test {
 protected:
  void SetUp() override {
    set(L"", L"URL:test of Marlune");
    set(L"URL Protocol", L"");
    setCommand(L"open", opened);
    setCommand(L"print", printed);
  }
  void TearDown() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
    std::error_code ignored;  // what writes them may hold them a moment longer
    fs::remove(opened, ignored);
    fs::remove(printed, ignored);
  }
  static bool appears(const fs::path& file) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (!fs::exists(file)) {
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(20ms);
    }
    return true;
  }

  const fs::path opened = leftBehind(L"opened");
  const fs::path printed = leftBehind(L"printed");

 private:
  static constexpr wchar_t kKey[] = L"Software\\Classes\\marlunetest";

  static fs::path leftBehind(const std::wstring& name) {
    return fs::temp_directory_path() /
           (L"marlune-" + name + L"-" + std::to_wstring(GetCurrentProcessId()));
  }
  static void set(const std::wstring& name, const std::wstring& text,
                  const std::wstring& sub = L"") {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, (std::wstring(kKey) + sub).c_str(), name.c_str(),
                              REG_SZ, text.c_str(), size),
              0);
  }
  static void setCommand(const std::wstring& verb, const fs::path& file) {
    set(L"", L"cmd.exe /c echo %1> \"" + file.wstring() + L"\"",
        L"\\shell\\" + verb + L"\\command");
  }
};

TEST_F(ShellWinTest, AnAddressIsOpenedByTheProgramForItsKind) {
  EXPECT_TRUE(ShellWin().open(u"marlunetest:page"));
  EXPECT_TRUE(appears(opened));
  EXPECT_FALSE(fs::exists(printed));
}

TEST_F(ShellWinTest, WhatNobodyCanOpenIsToldAsAFailure) {
  EXPECT_FALSE(ShellWin().open(u"C:\\no such folder\\no such file.pptx"));
}

}  // namespace
}  // namespace mrl
