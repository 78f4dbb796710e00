#include "core/commands.h"

#include <algorithm>

#include "core/app_fixture.h"
#include "core/blackout.h"
#include "core/expiry.h"

namespace mrl {
namespace {

class CommandsTest : public AppFixture {
 protected:
  void SetUp() override { startWith(Settings{}); }

  void failSaves() { files().failing = {FilesFake::Operation::Create}; }
};

TEST_F(CommandsTest, ToggleStartsPausesAndResumes) {
  runCommand(app, kCommandToggleTimer);
  EXPECT_EQ(phase(), TimerPhase::Running);
  clock.advance(5000);
  runCommand(app, kCommandToggleTimer);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  EXPECT_EQ(elapsedMs(), 5000);
  clock.advance(60'000);
  runCommand(app, kCommandToggleTimer);
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 5000);
}

TEST_F(CommandsTest, ResetStopsTheTimerAndWhatIsInFlight) {
  runCommand(app, kCommandToggleTimer);
  startBlink(app, 0);
  clock.advance(5000);
  runCommand(app, kCommandReset);
  EXPECT_EQ(app.timer, TimerState{});
  EXPECT_FALSE(app.blink.active);
}

TEST_F(CommandsTest, PauseOrResumeDoesNothingOnAnIdleTimer) {
  runCommand(app, kCommandPauseOrResume);
  EXPECT_EQ(phase(), TimerPhase::Idle);
  runCommand(app, kCommandToggleTimer);
  runCommand(app, kCommandPauseOrResume);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  runCommand(app, kCommandPauseOrResume);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(CommandsTest, TheClockIsHiddenAndShownByTheUsersWish) {
  app.hiddenByRule = true;
  runCommand(app, kCommandHideClock);
  EXPECT_FALSE(clockWindow.visible);
  EXPECT_FALSE(app.hiddenByRule);
  app.hiddenByRule = true;
  runCommand(app, kCommandShowClock);
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_FALSE(app.hiddenByRule);
}

TEST_F(CommandsTest, ToggleVisibilityGoesByWhatIsSeen) {
  app.hiddenByRule = true;
  runCommand(app, kCommandToggleVisibility);
  EXPECT_FALSE(clockWindow.visible || app.hiddenByRule);
  app.hiddenByRule = true;
  runCommand(app, kCommandToggleVisibility);
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_FALSE(app.hiddenByRule);
}

TEST_F(CommandsTest, ExitDestroysTheClockWindow) {
  runCommand(app, kCommandExit);
  EXPECT_FALSE(clockWindow.exists);
}

TEST_F(CommandsTest, EveryCommandRepaintsTheClockWhateverHappened) {
  for (const int command : {0, 99, 100, 101, 102, 103, 104, 105, 106, 108, 109, 110, 111, 112, 113,
                            114, 115, 107, 4711}) {
    clockWindow.calls.clear();
    runCommand(app, command);
    ASSERT_FALSE(clockWindow.calls.empty()) << command;
    EXPECT_EQ(clockWindow.calls.back(), "invalidate") << command;
  }
}

TEST_F(CommandsTest, ANumberThatIsNoCommandChangesNothing) {
  const Settings before = app.settings;
  runCommand(app, 115);
  EXPECT_EQ(app.settings, before);
  EXPECT_EQ(app.timer, TimerState{});
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(CommandsTest, ManualModeIsSavedAndAdopted) {
  runCommand(app, kCommandManualMode);
  EXPECT_FALSE(app.settings.autoMode);
  EXPECT_FALSE(saved().autoMode);
}

TEST_F(CommandsTest, AChosenModeReplacesARefusedFile) {
  app.settingsWritable = false;
  for (const bool automatic : {false, true}) {
    files().putFile(kSettingsPath, "something else");
    runCommand(app, automatic ? kCommandAutoMode : kCommandManualMode);
    EXPECT_EQ(saved().autoMode, automatic);
  }
  EXPECT_FALSE(app.settingsWritable) << "only a start looks at the file again";
}

TEST_F(CommandsTest, AModeThatCannotBeSavedStaysAsItWasAndTheUserIsTold) {
  failSaves();
  runCommand(app, kCommandManualMode);
  EXPECT_TRUE(app.settings.autoMode);
  EXPECT_EQ(app.lastError, u"Cannot create temporary configuration");
}

TEST_F(CommandsTest, AutomaticModeDuringAShowStartsTheTimerWithoutWaitingForAPoll) {
  runCommand(app, kCommandManualMode);
  startShow(kDeck);
  waitForPoll();
  ASSERT_EQ(phase(), TimerPhase::Idle);
  runCommand(app, kCommandAutoMode);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(CommandsTest, AutomaticModeDuringAShowStartsTheTimerFromNowAndNotFromTheLastPoll) {
  runCommand(app, kCommandManualMode);
  startShow(kDeck);
  waitForPoll();
  runFor(900);
  runCommand(app, kCommandAutoMode);
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(CommandsTest, AModeThatStandsAlreadyIsSavedAllTheSame) {
  files().remove(kSettingsPath);
  runCommand(app, kCommandAutoMode);
  EXPECT_TRUE(files().exists(kSettingsPath));
}

TEST_F(CommandsTest, AutomaticModeDuringAnExcludedShowStartsNothing) {
  runCommand(app, kCommandManualMode);
  app.settings.skipList = {kDeck};
  startShow(kDeck);
  waitForPoll();
  runCommand(app, kCommandAutoMode);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(CommandsTest, AutomaticModeWhileTheDeckOfASwitchIsShownStartsNothing) {
  runCommand(app, kCommandManualMode);
  startShow(kDeck);
  waitForPoll();
  app.deckSwitch.target = kDeck;
  app.follower.switchPending = true;
  runCommand(app, kCommandAutoMode);
  EXPECT_EQ(phase(), TimerPhase::Idle);
  EXPECT_TRUE(app.follower.switchSeen);
}

TEST_F(CommandsTest, AutomaticModeGoesByTheLastPollAndMakesNone) {
  runCommand(app, kCommandManualMode);
  waitForPoll();
  startShow(kDeck);
  outside.log.clear();
  runCommand(app, kCommandAutoMode);
  EXPECT_EQ(phase(), TimerPhase::Idle);
  EXPECT_TRUE(outside.log.empty());
}

TEST_F(CommandsTest, TheBlackScreenIsToggledDuringAShow) {
  startShow(kDeck);
  waitForPoll();
  runCommand(app, kCommandToggleBlack);
  EXPECT_TRUE(blackScreen.covering);
  runCommand(app, kCommandToggleBlack);
  EXPECT_FALSE(blackScreen.covering);
}

TEST_F(CommandsTest, ToggleStartsAnIdleTimerInAutomaticModeAndAShowLeavesItRunning) {
  waitForPoll();
  runCommand(app, kCommandToggleTimer);
  runFor(5000);
  startShow(kDeck);
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_GE(elapsedMs(), 5000);
}

TEST_F(CommandsTest, AutomaticModeThatCannotBeSavedStartsNoTimer) {
  runCommand(app, kCommandManualMode);
  startShow(kDeck);
  waitForPoll();
  failSaves();
  runCommand(app, kCommandAutoMode);
  EXPECT_FALSE(app.settings.autoMode);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(CommandsTest, TheBlackScreenIsRefusedWithoutAShow) {
  runCommand(app, kCommandToggleBlack);
  EXPECT_FALSE(blackScreen.covering);
  EXPECT_EQ(app.lastError, u"当前没有可控制的放映，黑屏不适用于已排除的文稿。");
}

TEST_F(CommandsTest, F2TogglesTheTimerAndF4ResetsIt) {
  EXPECT_TRUE(onClockKey(app, 0x71));
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_TRUE(onClockKey(app, 0x73));
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(CommandsTest, EscapeMeansNothingOnTheClockWithoutABlackScreen) {
  EXPECT_FALSE(onClockKey(app, 0x1B));
  EXPECT_FALSE(onClockKey(app, 0x72));
}

TEST_F(CommandsTest, EscapeEndsTheShowWhileTheScreenIsBlack) {
  startShow(kDeck);
  waitForPoll();
  runCommand(app, kCommandToggleBlack);
  EXPECT_FALSE(onClockKey(app, 0x20));
  EXPECT_TRUE(onClockKey(app, 0x1B));
  EXPECT_TRUE(program->shows.empty());
  EXPECT_FALSE(onBlackKey(app, 0x20));
}

}  // namespace
}  // namespace mrl
