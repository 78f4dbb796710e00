// The real mutex and the real windows. Threads of this process play the other processes, except
// where only the whole program will do.
#include "core/instances_win.h"

#include <gtest/gtest.h>
#include <sddl.h>

#include <thread>

#include "base/command_ids.h"
#include "base/geometry_win.h"
#include "base/replaced_import_win.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "overlay/test_window_class_win.h"

namespace mrl {
namespace {

bool claimElsewhere(Instances& instances, uint32_t waitMs) {
  bool claimed = false;
  std::thread([&] { claimed = instances.claim(waitMs); }).join();
  return claimed;
}

DWORD letToTheFront = 0;
BOOL WINAPI letToFront(DWORD process) {
  letToTheFront = process;
  return TRUE;
}

TEST(InstancesWinTest, OnlyOneHoldsThePlaceAndTheNextGetsItAfterwards) {
  InstancesWin second;
  {
    InstancesWin first;
    ASSERT_TRUE(first.claim(0));
    EXPECT_FALSE(claimElsewhere(second, 0));
  }
  EXPECT_TRUE(claimElsewhere(second, 0)) << "given back";
}

TEST(InstancesWinTest, ThePlaceOfOneThatWasEndedByForceIsFree) {
  InstancesWin first;
  ASSERT_TRUE(claimElsewhere(first, 0)) << "a thread that ends without giving it back";
  InstancesWin second;
  EXPECT_TRUE(second.claim(10'000));
}

TEST(InstancesWinTest, ThePlaceIsTheUsersOwn) {
  InstancesWin instances;
  ASSERT_TRUE(instances.claim(0));
  const std::wstring name = L"Local\\Marlune.Native." + wideFrom(instances.own().user);
  const HANDLE place = OpenMutexW(SYNCHRONIZE, FALSE, name.c_str());
  EXPECT_NE(place, nullptr);
  if (place) CloseHandle(place);
}

TEST(InstancesWinTest, WhereTheNameMeansSomethingElseNothingCanBeHad) {
  InstancesWin instances;
  const std::wstring name = L"Local\\Marlune.Native." + wideFrom(instances.own().user);
  const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, name.c_str());
  ASSERT_NE(event, nullptr);
  EXPECT_FALSE(instances.claim(0));
  CloseHandle(event);
}

TEST(InstancesWinTest, TheUserIsToldByTheNumberThatWindowsHasForHim) {
  const Account own = InstancesWin().own();
  PSID sid = nullptr;
  ASSERT_TRUE(ConvertStringSidToSidW(wideFrom(own.user).c_str(), &sid)) << "no such form";
  HANDLE token = nullptr;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
  wchar_t name[256]{};
  DWORD length = std::size(name);
  ASSERT_TRUE(GetUserNameW(name, &length));
  std::byte found[SECURITY_MAX_SID_SIZE];
  DWORD size = sizeof found;
  wchar_t domain[256]{};
  DWORD domainLength = std::size(domain);
  SID_NAME_USE use{};
  ASSERT_TRUE(LookupAccountNameW(nullptr, name, found, &size, domain, &domainLength, &use));
  EXPECT_TRUE(EqualSid(sid, found));
  TOKEN_ELEVATION elevation{};
  ASSERT_TRUE(GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size));
  EXPECT_EQ(own.isElevated, elevation.TokenIsElevated != 0);
  CloseHandle(token);
  LocalFree(sid);
}

TEST(InstancesWinTest, AClockOfItsOwnProcessIsNotAnotherOne) {
  TestWindowClass windowClass(kTimerClass);
  ASSERT_TRUE(windowClass.registered);
  const HWND window = CreateWindowExW(0, kTimerClass, L"Marlune", WS_POPUP, 0, 0, 10, 10, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), &windowClass);
  ASSERT_NE(window, nullptr);
  InstancesWin instances;
  instances.announce(handleFrom(window));
  for (const OtherClock& clock : instances.others()) EXPECT_NE(clock.window, handleFrom(window));
  DestroyWindow(window);
}

TEST(InstancesWinTest, AClockThatAnswersMayComeToTheFrontAndIsAskedForItsSettings) {
  const ReplacedImport<decltype(letToFront)> system("AllowSetForegroundWindow", letToFront);
  letToTheFront = 0;
  TestWindowClass windowClass(kTimerClass);
  const HWND window = CreateWindowExW(0, kTimerClass, L"Marlune", WS_POPUP, 0, 0, 10, 10, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), &windowClass);
  EXPECT_TRUE(InstancesWin().askForSettings(handleFrom(window)));
  EXPECT_EQ(letToTheFront, GetCurrentProcessId());
  EXPECT_TRUE(windowClass.received(WM_NULL, 0)) << "it does not end at this moment";
  MSG message{};
  ASSERT_TRUE(PeekMessageW(&message, window, WM_COMMAND, WM_COMMAND, PM_REMOVE));
  EXPECT_EQ(message.wParam, WPARAM{kCommandOpenSettings});
  DestroyWindow(window);
}

TEST(InstancesWinTest, AWindowThatHasGoneHasNotBeenAsked) {
  EXPECT_FALSE(InstancesWin().askForSettings(WindowHandle{0x7FFFFFF0}));
}

}  // namespace
}  // namespace mrl
