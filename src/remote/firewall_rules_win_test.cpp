// FirewallRulesWin where only intercepted system calls can check it. The rules and the elevated
// command are covered by the tests of the whole program.
#include "remote/firewall_rules_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include "base/geometry_win.h"
#include "base/replaced_import_win.h"

namespace mrl {
namespace {

struct Order {
  ULONG mask = 0;
  HWND owner = nullptr;
  std::wstring verb;
  std::wstring file;
  std::wstring arguments;
  std::wstring folder;
  int show = -1;
};
Order given;
DWORD shellError = 0;  // the system's error; 0: success

BOOL WINAPI execute(SHELLEXECUTEINFOW* info) {
  given = {info->fMask,        info->hwnd,        info->lpVerb, info->lpFile,
           info->lpParameters, info->lpDirectory, info->nShow};
  info->hProcess = nullptr;  // as if a running program had taken over the request
  SetLastError(shellError);
  return shellError == 0 ? TRUE : FALSE;
}

class ElevatedRunTest : public ::testing::Test {
 protected:
  ElevatedRunTest() { shellError = 0; }

  const ReplacedImport<decltype(execute)> system{"ShellExecuteExW", execute};
  FirewallRulesWin rules;
};

TEST_F(ElevatedRunTest, TheUserIsAskedForRightsAndTheCommandIsHiddenAndWaitedFor) {
  const WindowHandle owner = handleFrom(GetDesktopWindow());
  const ElevatedRun run = rules.runElevated(
      owner, {u"C:\\Windows\\system32\\netsh.exe", u"advfirewall show", u"C:\\Windows\\system32"});
  EXPECT_TRUE(run.started);
  EXPECT_EQ(given.verb, L"runas");
  EXPECT_EQ(given.show, SW_HIDE);
  EXPECT_EQ(given.mask, 0x140U) << "the process is handed back, and this thread does the work";
  EXPECT_EQ(given.owner, GetDesktopWindow());
  EXPECT_EQ(given.file, L"C:\\Windows\\system32\\netsh.exe");
  EXPECT_EQ(given.arguments, L"advfirewall show");
  EXPECT_EQ(given.folder, L"C:\\Windows\\system32");
}

TEST_F(ElevatedRunTest, WithoutAProcessToWaitForItHasNotSucceeded) {
  EXPECT_EQ(rules.runElevated({}, {u"a", u"b", u"c"}).exitCode, 0xFFFFFFFF);
}

TEST_F(ElevatedRunTest, ARefusalIsToldWithTheSystemsError) {
  shellError = ERROR_CANCELLED;
  const ElevatedRun run = rules.runElevated({}, {u"a", u"b", u"c"});
  EXPECT_FALSE(run.started);
  EXPECT_EQ(run.error, 1223U);
}

UINT folderLength = 0;
UINT WINAPI systemDirectory(wchar_t* path, UINT size) {
  for (UINT i = 0; i < size; ++i) path[i] = L'x';
  return folderLength;
}

TEST(SystemFolderTest, IsNotToldWhereItWasCutOffOrTheSystemDoesNotSay) {
  const ReplacedImport<decltype(systemDirectory)> system{"GetSystemDirectoryW", systemDirectory};
  FirewallRulesWin rules;
  folderLength = 259;
  EXPECT_EQ(rules.systemFolder(), std::u16string(259, u'x'));
  for (const UINT length : {0U, 260U, 300U}) {
    folderLength = length;
    EXPECT_EQ(rules.systemFolder(), u"") << length;
  }
}

DWORD pathLength = 0;
DWORD WINAPI moduleFileName(HMODULE /*module*/, wchar_t* path, DWORD size) {
  for (DWORD i = 0; i < size; ++i) path[i] = L'x';
  return pathLength;
}

TEST(ProgramPathTest, IsNotToldWhereItWasCutOffOrTheSystemDoesNotSay) {
  const ReplacedImport<decltype(moduleFileName)> system{"GetModuleFileNameW", moduleFileName};
  FirewallRulesWin rules;
  pathLength = 32767;
  EXPECT_EQ(rules.programPath().size(), 32767U);
  for (const DWORD length : {0UL, 32768UL}) {
    pathLength = length;
    EXPECT_EQ(rules.programPath(), u"") << length;
  }
}

}  // namespace
}  // namespace mrl
