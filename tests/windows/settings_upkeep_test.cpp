// The real settings window in long use.
#include <gtest/gtest.h>

#include "base/command_ids.h"
#include "settings_window/control_ids.h"
#include "windows/held_objects.h"
#include "windows/settings_screen.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsUpkeepTest : public SettingsScreen {
 protected:
  /// Counts once nothing is left to paint.
  HeldObjects held() const {
    settledShot();
    DWORD processId = 0;
    GetWindowThreadProcessId(program.clock(), &processId);
    return heldObjectsOf(processId);
  }
  void reopen(int times) {
    for (int i = 0; i < times; ++i) {
      ask(window(), WM_CLOSE);
      ASSERT_EQ(settingsWindows(), 0);
      program.command(kCommandOpenSettings);
      ASSERT_EQ(settingsWindows(), 1);
    }
  }
  void turnPages(int times) {
    for (int i = 0; i < times; ++i) ask(window(), WM_COMMAND, kFirstSection + i % kPageCount);
    ASSERT_EQ(page(), (times - 1) % kPageCount);
  }
  static void expectNoMore(const HeldObjects& after, const HeldObjects& before) {
    EXPECT_LE(after.drawing, before.drawing);
    EXPECT_LE(after.window, before.window);
    EXPECT_LE(after.handles, before.handles);
    EXPECT_GT(before.drawing, 10) << "nothing was counted";
    EXPECT_GT(before.window, 100);
    EXPECT_GT(before.handles, 10);
  }
};

TEST_F(SettingsUpkeepTest, OpeningItAgainAndAgainLeavesNothingBehind) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(reopen(10));
  const HeldObjects before = held();
  ASSERT_NO_FATAL_FAILURE(reopen(30));
  expectNoMore(held(), before);
}

TEST_F(SettingsUpkeepTest, TurningItsPagesAgainAndAgainLeavesNothingBehind) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(turnPages(10));
  const HeldObjects before = held();
  ASSERT_NO_FATAL_FAILURE(turnPages(90));
  ShowWindow(window(), SW_MINIMIZE);  // much faster without painting
  ASSERT_NO_FATAL_FAILURE(turnPages(300));
  program.command(kCommandOpenSettings);
  ASSERT_TRUE(waitUntil([&] { return !IsIconic(window()); }));
  settledShot();
  expectNoMore(held(), before);
}

TEST_F(SettingsUpkeepTest, EscapeInTheBoxOfSeveralLinesClosesTheWindowAndNotItsPane) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_TRUE(openPage(3));
  click(kAddressBox);
  ASSERT_TRUE(waitUntil([&] { return focusedId() == kAddressBox; }));
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(waitUntil([&] { return settingsWindows() == 0; }));
}

}  // namespace
}  // namespace mrl
