// The user starts the program again while it is running: real processes outside test mode, with the
// user's own settings file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/command_ids.h"
#include "base/geometry_win.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "core/instances_win.h"
#include "settings/files_win.h"
#include "settings/settings_file.h"
#include "settings/settings_path_win.h"
#include "windows/program.h"
#include "windows/standin_client.h"
#include "windows/top_windows.h"

namespace mrl {
namespace {

namespace fs = std::filesystem;
using standin::waitUntil;

class SecondStartTest : public testing::Test {
 protected:
  void SetUp() override {
    Settings settings;
    settings.windowX = 200;
    settings.windowY = 150;
    settings.remoteAutoStart = false;
    FilesWin files;
    std::u16string error;
    fs::remove_all(ownFolder());
    ASSERT_TRUE(saveSettings(files, settingsPath(), settings, error));
  }
  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(ownFolder(), ignored);
  }
  static fs::path ownFolder() { return fs::path(wideFrom(settingsPath())).parent_path(); }
  static std::string fileBytes() {
    std::ifstream file(fs::path(wideFrom(settingsPath())), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static size_t clocks() { return topWindows(kTimerClass).size(); }

  /// Starts the program again and checks that it leaves everything to the first instance.
  void startAgain() {
    const std::string before = fileBytes();
    Program second;
    DWORD exitCode = 99;
    ASSERT_TRUE(second.startInVain(exitCode));
    EXPECT_EQ(exitCode, 0u);
    EXPECT_EQ(fileBytes(), before);
    EXPECT_EQ(clocks(), 1u);
  }
  bool showsSettingsInFront() {
    return waitUntil([&] {
      const HWND settings = first.settingsWindow();
      return settings != nullptr && !IsIconic(settings) && GetForegroundWindow() == settings;
    });
  }

  Program first;
};

TEST_F(SecondStartTest, ItEndsAndBringsTheSettingsOfTheFirstToTheFront) {
  ASSERT_TRUE(first.startForUser());
  ASSERT_NO_FATAL_FAILURE(startAgain());
  EXPECT_TRUE(showsSettingsInFront());
}

TEST_F(SecondStartTest, SettingsThatWereClosedOpenAgain) {
  ASSERT_TRUE(first.startForUser());
  ASSERT_TRUE(first.closeSettings());
  ASSERT_NO_FATAL_FAILURE(startAgain());
  EXPECT_TRUE(showsSettingsInFront());
}

TEST_F(SecondStartTest, SettingsThatWereMinimisedComeBack) {
  ASSERT_TRUE(first.startForUser());
  ShowWindow(first.settingsWindow(), SW_MINIMIZE);
  ASSERT_TRUE(waitUntil([&] { return IsIconic(first.settingsWindow()) != FALSE; }));
  ASSERT_NO_FATAL_FAILURE(startAgain());
  EXPECT_TRUE(showsSettingsInFront());
}

TEST_F(SecondStartTest, SettingsBehindAnotherWindowComeBeforeIt) {
  ASSERT_TRUE(first.startForUser());
  const HWND cover = CreateWindowExW(0, L"STATIC", L"cover", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                     1000, 700, nullptr, nullptr, nullptr, nullptr);
  SetForegroundWindow(cover);
  ASSERT_EQ(GetForegroundWindow(), cover);
  ASSERT_NO_FATAL_FAILURE(startAgain());
  EXPECT_TRUE(showsSettingsInFront());
  DestroyWindow(cover);
}

TEST_F(SecondStartTest, AFirstThatHangsIsNotJoinedByASecondAndOpensItsSettingsLater) {
  ASSERT_TRUE(first.startForUser());
  ASSERT_TRUE(first.closeSettings());
  const HANDLE thread =
      OpenThread(THREAD_SUSPEND_RESUME, FALSE, GetWindowThreadProcessId(first.clock(), nullptr));
  ASSERT_NE(thread, nullptr);
  SuspendThread(thread);
  startAgain();
  EXPECT_EQ(first.settingsWindow(), nullptr);
  ResumeThread(thread);
  CloseHandle(thread);
  EXPECT_TRUE(waitUntil([&] { return first.settingsWindow() != nullptr; }));
}

TEST_F(SecondStartTest, AfterTheEndOfTheFirstTheNextIsTheFirst) {
  ASSERT_TRUE(first.startForUser());
  PostMessageW(first.clock(), WM_COMMAND, kCommandExit, 0);
  Program next;
  EXPECT_TRUE(next.startForUser()) << "it waits for one that is just ending";
}

TEST_F(SecondStartTest, AFirstThatWasKilledLeavesThePlaceFree) {
  { ASSERT_TRUE(Program().startForUser()); }
  EXPECT_TRUE(first.startForUser());
}

TEST_F(SecondStartTest, WhoeverHoldsTheNameAndShowsAWindowLikeItStopsNoStart) {
  InstancesWin squatter;
  ASSERT_TRUE(squatter.claim(0));
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = kTimerClass;
  ASSERT_NE(RegisterClassW(&windowClass), 0);
  const HWND window = CreateWindowExW(0, kTimerClass, L"Marlune", WS_POPUP, 0, 0, 10, 10, nullptr,
                                      nullptr, nullptr, nullptr);
  EXPECT_TRUE(first.startForUser());
  DestroyWindow(window);
  UnregisterClassW(kTimerClass, nullptr);
}

TEST_F(SecondStartTest, StartsOfTestsStandBesideTheUsersOwnInAnyOrder) {
  Program test;
  ASSERT_TRUE(test.start());
  ASSERT_TRUE(first.startForUser());
  Program another;
  ASSERT_TRUE(another.start());
  EXPECT_EQ(clocks(), 3u);
}

TEST_F(SecondStartTest, OfAllClocksOnlyTheUsersOwnIsAnnounced) {
  Program test;
  ASSERT_TRUE(test.start());
  ASSERT_TRUE(first.startForUser());
  InstancesWin instances;
  const std::vector<OtherClock> others = instances.others();
  ASSERT_EQ(others.size(), 2u);
  for (const OtherClock& clock : others) {
    EXPECT_EQ(clock.isAnnounced, clock.window == handleFrom(first.clock()));
    EXPECT_EQ(clock.account, instances.own());
    EXPECT_FALSE(clock.account.user.empty());
  }
}

}  // namespace
}  // namespace mrl
