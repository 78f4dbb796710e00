#include "core/expiry.h"

#include <algorithm>

#include "core/app_fixture.h"
#include "core/blackout.h"
#include "core/commands.h"

namespace mrl {
namespace {

class ExpiryActionsTest : public AppFixture {
 protected:
  void SetUp() override {
    Settings settings;
    settings.duration = 10;
    settings.blink = false;
    settings.prompt2.enabled = false;
    startWith(settings);
  }

  void runOut() {
    runCommand(app, kCommandToggleTimer);
    runFor(10'000);
  }
  bool wasTold(const std::string& call) const {
    return std::find(outside.log.begin(), outside.log.end(), call) != outside.log.end();
  }
};

TEST_F(ExpiryActionsTest, WithNoActionChosenTheTimerJustGoesOnIntoOvertime) {
  runOut();
  EXPECT_TRUE(app.timer.expiredFired);
  EXPECT_FALSE(app.blink.active);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(ExpiryActionsTest, ABlinkWithoutALimitGoesOnThroughTheOvertimeUntilReset) {
  app.settings.blink = true;
  runOut();
  EXPECT_TRUE(app.blink.active);
  EXPECT_EQ(app.blink.endMs, 0u);
  runFor(600'000);
  EXPECT_TRUE(app.blink.active);
  runCommand(app, kCommandReset);
  EXPECT_FALSE(app.blink.active);
}

TEST_F(ExpiryActionsTest, ABlinkWithALimitEndsByItself) {
  app.settings.blink = true;
  app.settings.blinkSeconds = 3;
  runOut();
  runFor(2900);
  EXPECT_TRUE(app.blink.active);
  runFor(100);
  EXPECT_FALSE(app.blink.active);
  EXPECT_EQ(app.blink.endMs, 0u);
}

TEST_F(ExpiryActionsTest, ASecondBlinkReplacesTheFirstAndItsEnd) {
  startBlink(app, 0);
  clock.advance(250);
  startBlink(app, 2);
  EXPECT_EQ(app.blink.startMs, clock.nowMs());
  EXPECT_EQ(app.blink.endMs, clock.nowMs() + 2000);
  startBlink(app, 0);
  EXPECT_EQ(app.blink.endMs, 0u);
}

TEST_F(ExpiryActionsTest, APauseDoesNotStopTheBlink) {
  app.settings.blink = true;
  runOut();
  runCommand(app, kCommandToggleTimer);
  runFor(5000);
  EXPECT_TRUE(app.blink.active);
}

TEST_F(ExpiryActionsTest, EitherStageSwitchStartsTheSameBlink) {
  app.settings.prompt1 = {.blinkWindow = true, .blinkBackground = false, .blinkSeconds = 4};
  fireStage(app, 0);
  EXPECT_EQ(app.blink.endMs, clock.nowMs() + 4000);
  app.blink.active = false;
  app.settings.prompt2 = {.blinkWindow = false, .blinkBackground = true, .blinkSeconds = 5};
  fireStage(app, 1);
  EXPECT_TRUE(app.blink.active);
  EXPECT_EQ(app.blink.endMs, clock.nowMs() + 5000);
}

TEST_F(ExpiryActionsTest, AStageWithBothSwitchesOffDoesNotBlink) {
  app.settings.prompt1 = {.blinkWindow = false, .blinkBackground = false};
  fireStage(app, 0);
  EXPECT_FALSE(app.blink.active);
}

TEST_F(ExpiryActionsTest, AStageNeitherPausesNorBlacksNorExitsNorSwitches) {
  app.settings.black = app.settings.exitShow = app.settings.switchPpt = true;
  app.settings.prompt1 = {.blinkWindow = true, .sound = true};
  startShow(kDeck);
  waitForPoll();
  fireStage(app, 0);
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_FALSE(blackScreen.covering || app.follower.switchPending);
  EXPECT_EQ(program->shows.size(), 1u);
  EXPECT_EQ(app.deckSwitch.openAtMs, 0u);
}

TEST_F(ExpiryActionsTest, BlinkAndBlackScreenComeBeforeTheExitOfTheShow) {
  app.settings.black = app.settings.exitShow = true;
  startShow(kDeck);
  waitForPoll();
  bool stoodBefore = false;
  outside.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "method view.Exit") stoodBefore = app.blink.active && blackScreen.covering;
  };
  fireExpiry(app, clock.nowMs());
  EXPECT_TRUE(stoodBefore);
  EXPECT_TRUE(program->shows.empty());
}

TEST_F(ExpiryActionsTest, ADurationChangedByHandDoesNotFireAgain) {
  app.settings.blink = true;
  app.settings.blinkSeconds = 1;
  runOut();
  runFor(1000);
  ASSERT_FALSE(app.blink.active);
  app.settings.duration = 15;
  runFor(10'000);
  EXPECT_FALSE(app.blink.active);
}

TEST_F(ExpiryActionsTest, ABlackScreenAtTheEndBlinksTheClockOnIt) {
  app.settings.black = true;
  startShow(kDeck);
  waitForPoll();
  runFor(10'000);
  EXPECT_TRUE(blackScreen.covering);
  EXPECT_TRUE(app.blink.active);
}

TEST_F(ExpiryActionsTest, WithoutAShowTheBlackScreenIsRefusedAndTheBlinkStartsAllTheSame) {
  app.settings.black = true;
  app.settings.autoMode = false;
  runOut();
  EXPECT_FALSE(blackScreen.covering);
  EXPECT_FALSE(app.blackActive);
  EXPECT_EQ(app.lastError, u"当前没有可控制的放映，黑屏不适用于已排除的文稿。");
  EXPECT_TRUE(app.blink.active);
}

TEST_F(ExpiryActionsTest, ExitingTheShowPausesTheTimerAtTheNextPoll) {
  app.settings.exitShow = true;
  startShow(kDeck);
  waitForPoll();
  runFor(10'000);
  EXPECT_TRUE(wasTold("method view.Exit"));
  outside.windows.windows.clear();
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Paused);
  const int64_t stopped = elapsedMs();
  runFor(5000);
  EXPECT_EQ(elapsedMs(), stopped);
}

TEST_F(ExpiryActionsTest, AnExitThatFailsIsToldAndTheRestStillHappens) {
  app.settings.exitShow = true;
  app.settings.blink = true;
  runOut();
  EXPECT_EQ(app.lastError, u"放映操作失败（COM HRESULT=2147500037）");
  EXPECT_TRUE(app.blink.active);
}

TEST_F(ExpiryActionsTest, ClearingTheRuntimeLeavesTheBlackScreenTheOpenPulseAndTheTimerAlone) {
  startShow(kDeck);
  waitForPoll();
  setBlack(app, true);
  startBlink(app, 5);
  app.follower.switchPending = app.follower.switchSeen = true;
  app.deckSwitch.target = kOtherDeck;
  app.deckSwitch.hold = app.deckSwitch.holdSeen = true;
  app.deckSwitch.openAtMs = app.deckSwitch.pulse.nextMs = app.deckSwitch.pulse.untilMs = 1;
  app.startedShow.target = kDeck;
  app.startedShow.pulse.untilMs = app.startedShow.pulse.nextMs = 7;
  const uint64_t blinkStart = app.blink.startMs;
  app.soundStopMs = 1;
  audio.isOpen = true;
  const TimerState timer = app.timer;
  clearRuntime(app);
  EXPECT_FALSE(app.follower.switchPending || app.follower.switchSeen);
  EXPECT_EQ(app.deckSwitch.target, u"");
  EXPECT_FALSE(app.deckSwitch.hold || app.deckSwitch.holdSeen);
  EXPECT_EQ(app.deckSwitch.openAtMs + app.deckSwitch.pulse.nextMs + app.deckSwitch.pulse.untilMs +
                app.blink.endMs,
            0u);
  EXPECT_EQ(app.soundStopMs, 0u);
  EXPECT_FALSE(audio.isOpen);
  EXPECT_FALSE(app.blink.active);
  EXPECT_TRUE(blackScreen.covering);
  EXPECT_EQ(app.startedShow.target, kDeck);
  EXPECT_EQ(app.startedShow.pulse.untilMs + app.startedShow.pulse.nextMs, 14u);
  EXPECT_EQ(app.blink.startMs, blinkStart);
  EXPECT_EQ(app.timer, timer);
}

}  // namespace
}  // namespace mrl
