#include "core/shell_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include <optional>

#include "base/replaced_import_win.h"
#include "base/wide_win.h"

namespace mrl {
namespace {

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
