#include "core/shell_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <thread>

#include "core/replaced_import_win.h"
#include "core/wide_win.h"

namespace mrl {
namespace {

namespace fs = std::filesystem;

/// A kind of address of the test's own, as a browser has its own: what opens it leaves a file.
class ShellByRealCallsTest : public testing::Test {
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

TEST_F(ShellByRealCallsTest, AnAddressIsOpenedByTheProgramForItsKind) {
  EXPECT_TRUE(ShellWin().open(u"marlunetest:page", u""));
  EXPECT_TRUE(appears(opened));
  EXPECT_FALSE(fs::exists(printed));
}

TEST_F(ShellByRealCallsTest, WhatNobodyCanOpenIsToldAsAFailure) {
  EXPECT_FALSE(ShellWin().open(u"C:\\no such folder\\no such file.pptx", u""));
}

struct Order {
  std::wstring verb;
  std::wstring file;
  std::optional<std::wstring> folder;
  int show = -1;
};
Order given;
INT_PTR answer = 33;

HINSTANCE WINAPI execute(HWND /*owner*/, const wchar_t* verb, const wchar_t* file,
                         const wchar_t* /*arguments*/, const wchar_t* folder, int show) {
  given = {verb, file, std::nullopt, show};
  if (folder != nullptr) given.folder = folder;
  return reinterpret_cast<HINSTANCE>(answer);
}

class ShellWinTest : public ::testing::Test {
 protected:
  void SetUp() override {
    given = {};
    answer = 33;
  }

  const ReplacedImport<decltype(execute)> system{"ShellExecuteW", execute};
  ShellWin shell;
};

TEST_F(ShellWinTest, ATargetIsOpenedVisiblyInItsFolder) {
  EXPECT_TRUE(shell.open(u"C:\\Windows\\system32\\wf.msc", u"C:\\Windows\\system32"));
  EXPECT_EQ(given.verb, L"open");
  EXPECT_EQ(given.file, L"C:\\Windows\\system32\\wf.msc");
  EXPECT_EQ(given.folder, L"C:\\Windows\\system32");
  EXPECT_EQ(given.show, SW_SHOWNORMAL);
}

TEST_F(ShellWinTest, WithoutAFolderItIsThisProgramsOwn) {
  EXPECT_TRUE(shell.open(u"http://127.0.0.1:22222/", u""));
  EXPECT_EQ(given.folder, std::nullopt);
}

TEST_F(ShellWinTest, AResultUpTo32IsARefusal) {
  answer = 32;
  EXPECT_FALSE(shell.open(u"x", u""));
  answer = 0;
  EXPECT_FALSE(shell.open(u"x", u""));
}

}  // namespace
}  // namespace mrl
