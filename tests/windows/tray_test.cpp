// The tray icon, seen from the shell.
#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "core/command_ids.h"
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

TEST_F(TrayTest, TheIconIsAddedAtStartUpWithItsTip) {
  ASSERT_TRUE(program.start());
  ASSERT_EQ(shell.count(NIM_ADD), 1);
  EXPECT_EQ(shell.requests.front().sender, program.clock());
  const std::wstring tip = L"Marlune · 单击设置";
  const std::string tipBytes(reinterpret_cast<const char*>(tip.c_str()),
                             (tip.size() + 1) * sizeof(wchar_t));
  EXPECT_NE(shell.requests.front().bytes.find(tipBytes), std::string::npos);
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
  PostMessageW(program.clock(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  EXPECT_TRUE(additions(2));
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
