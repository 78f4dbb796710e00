#include "core/tray_icon.h"

#include "core/app_fixture.h"
#include "core/commands.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr uint32_t kMouseMove = 0x0200;
constexpr uint32_t kLeftButtonDown = 0x0201;
constexpr uint32_t kLeftButtonUp = 0x0202;
constexpr uint32_t kLeftDoubleClick = 0x0203;
constexpr uint32_t kRightButtonDown = 0x0204;
constexpr uint32_t kRightButtonUp = 0x0205;
constexpr uint32_t kRightDoubleClick = 0x0206;

class TrayIconTest : public AppFixture {
 protected:
  bool isRetrying() const { return loop.timers.count(LoopTimer::TrayRetry) == 1; }
};

TEST_F(TrayIconTest, TheIconIsAddedAtStartUp) {
  start();
  EXPECT_EQ(tray.icons, 1);
  EXPECT_TRUE(app.trayAdded);
  EXPECT_FALSE(isRetrying());
}

TEST_F(TrayIconTest, BeforeTheShellRunsTheProgramStartsWithoutIconAndTriesEveryFiveSeconds) {
  tray.shellRuns = false;
  start();
  EXPECT_FALSE(app.trayAdded);
  ASSERT_TRUE(isRetrying());
  EXPECT_EQ(loop.timers[LoopTimer::TrayRetry], 5000u);
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(TrayIconTest, ARetryThatFailsGoesOnRetrying) {
  tray.shellRuns = false;
  start();
  retryTrayIcon(app);
  EXPECT_EQ(tray.additions, 2);
  EXPECT_TRUE(isRetrying());
}

TEST_F(TrayIconTest, TheRetryEndsOnceTheShellHasTakenTheIcon) {
  tray.shellRuns = false;
  start();
  tray.shellRuns = true;
  retryTrayIcon(app);
  EXPECT_EQ(tray.icons, 1);
  EXPECT_TRUE(app.trayAdded);
  EXPECT_FALSE(isRetrying());
}

TEST_F(TrayIconTest, ARetryThatComesLateAddsNoSecondIcon) {
  start();
  retryTrayIcon(app);
  EXPECT_EQ(tray.additions, 1);
}

TEST_F(TrayIconTest, AShellThatRestartsGetsTheIconBackAndOnlyOnce) {
  start();
  tray.remove();
  onShellStarted(app);
  EXPECT_EQ(tray.icons, 1);
  EXPECT_TRUE(app.trayAdded);
  EXPECT_FALSE(isRetrying());
}

TEST_F(TrayIconTest, AShellThatStillKnowsTheIconGetsNoSecondOne) {
  start();
  onShellStarted(app);
  EXPECT_EQ(tray.icons, 1);
  EXPECT_EQ(tray.additions, 2);
  EXPECT_EQ(tray.refreshes, 1) << "its picture is made for the new resolution";
  EXPECT_TRUE(app.trayAdded);
  EXPECT_FALSE(isRetrying()) << "or it would be tried in vain until the end";
}

TEST_F(TrayIconTest, AShellThatStartsLateGetsTheIconAtOnce) {
  tray.shellRuns = false;
  start();
  tray.shellRuns = true;
  onShellStarted(app);
  EXPECT_EQ(tray.icons, 1);
  EXPECT_FALSE(isRetrying());
}

TEST_F(TrayIconTest, TheIconGoesWithTheClock) {
  start();
  onClockDestroyed(app);
  EXPECT_EQ(tray.icons, 0);
  EXPECT_FALSE(app.trayAdded);
}

TEST_F(TrayIconTest, ALeftClickOrDoubleClickOpensTheSettingsAndTouchesNothingElse) {
  start();
  for (const uint32_t message : {kLeftButtonUp, kLeftDoubleClick}) {
    runCommand(app, kCommandToggleTimer);
    runFor(3000);
    onTrayMouse(app, message);
    EXPECT_TRUE(app.form.isOpen) << message;
    EXPECT_EQ(elapsedMs(), 3000) << message;
    EXPECT_EQ(menu.openings, 0);
    destroySettingsWindow(app);
    runCommand(app, kCommandReset);
  }
}

TEST_F(TrayIconTest, ARightClickOpensTheClocksMenuAtTheCursor) {
  start();
  clockWindow.cursorAt = {1800, 1050};
  onTrayMouse(app, kRightButtonUp);
  EXPECT_EQ(menu.openings, 1);
  EXPECT_EQ(menu.lastOwner, clockWindow.handle());
  EXPECT_EQ(menu.lastPoint, (Point{1800, 1050}));
}

TEST_F(TrayIconTest, WhatIsChosenInItsMenuIsRun) {
  start();
  menu.choice = kCommandToggleTimer;
  onTrayMouse(app, kRightButtonUp);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(TrayIconTest, AllElseTheMouseDoesOnTheIconIsIgnored) {
  start();
  clockWindow.invalidations = 0;
  for (const uint32_t message :
       {kMouseMove, kLeftButtonDown, kRightButtonDown, kRightDoubleClick, 0u, 0x0400u}) {
    onTrayMouse(app, message);
  }
  EXPECT_EQ(menu.openings, 0);
  EXPECT_EQ(clockWindow.invalidations, 0);
}

}  // namespace
}  // namespace mrl
