// The tray icon as the shell sees it.
#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "base/command_ids.h"
#include "core/tray_win.h"
#include "windows/program.h"
#include "windows/shell_standin.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

class TrayTest : public testing::Test {
 protected:
  bool additions(int number) {
    return waitUntil([&] { return shell.count(NIM_ADD) == number; });
  }

  ShellStandIn shell;
  Program program;
};

TEST_F(TrayTest, TheIconIsAddedAtStartUpWithItsPictureAndItsTip) {
  ASSERT_TRUE(program.start());
  ASSERT_EQ(shell.count(NIM_ADD), 1);
  const ShellStandIn::Request& icon = shell.requests.front();
  EXPECT_EQ(icon.sender, program.clock());
  EXPECT_EQ(icon.flags, static_cast<UINT>(NIF_MESSAGE | NIF_ICON | NIF_TIP));
  EXPECT_EQ(icon.callbackMessage, kTrayNotify);
  EXPECT_EQ(icon.tip, L"Marlune · 单击设置");
  EXPECT_EQ(icon.picture, (Size{GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)}));
}

TEST_F(TrayTest, AClickOnTheIconOpensTheSettingsAndLeavesTheTimeAlone) {
  ASSERT_TRUE(program.start());
  ASSERT_EQ(shell.count(NIM_ADD), 1);
  program.command(kCommandToggleTimer);
  ASSERT_TRUE(program.waitForText(L"14:58"));
  const ShellStandIn::Request& icon = shell.requests.front();
  PostMessageW(icon.sender, icon.callbackMessage, icon.id, WM_LBUTTONUP);
  EXPECT_TRUE(waitUntil([&] { return program.settingsWindow() != nullptr; }));
  EXPECT_LT(program.text(), L"14:59");
}

TEST_F(TrayTest, AShellThatComesLateGetsTheIconByItself) {
  shell.accepts = false;
  ASSERT_TRUE(program.start());
  ASSERT_EQ(shell.count(NIM_ADD), 1);
  shell.accepts = true;
  EXPECT_TRUE(additions(2));
}

TEST_F(TrayTest, AShellThatRestartsGetsTheIconAgain) {
  ASSERT_TRUE(program.start());
  shell.hasIcon = false;
  PostMessageW(program.clock(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  EXPECT_TRUE(additions(2));
  EXPECT_TRUE(shell.hasIcon);
}

TEST_F(TrayTest, AShellOfAnotherResolutionThatKeptTheIconGetsItsPictureAnew) {
  ASSERT_TRUE(program.start());
  PostMessageW(program.clock(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  ASSERT_TRUE(waitUntil([&] { return shell.count(NIM_MODIFY) == 1; }));
  EXPECT_EQ(shell.requests.back().flags, shell.requests.front().flags);
  EXPECT_EQ(shell.requests.back().picture, shell.requests.front().picture);
}

TEST_F(TrayTest, TheIconGoesWithTheProgram) {
  ASSERT_TRUE(program.start());
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  EXPECT_TRUE(waitUntil([&] { return shell.count(NIM_DELETE) == 1; }));
  DWORD exitCode = 99;
  EXPECT_TRUE(program.waitForEnd(exitCode));
}

}  // namespace
}  // namespace mrl
