#include "core/tick.h"

#include <algorithm>

#include "core/app_fixture.h"
#include "core/blackout.h"
#include "core/commands.h"
#include "core/expiry.h"

namespace mrl {
namespace {

class TickTest : public AppFixture {
 protected:
  void SetUp() override { startWith(Settings{}); }

  int polls() const {
    return static_cast<int>(
        std::count(outside.log.begin(), outside.log.end(), "running PowerPoint.Application"));
  }
  long times(const std::string& call) const {
    return std::count(clockWindow.calls.begin(), clockWindow.calls.end(), call);
  }
};

TEST_F(TickTest, PollsAtOnceAndThenAtMostOncePer1500Ms) {
  tick(app);
  EXPECT_EQ(outside.windows.scans, 1);
  runFor(1400);
  EXPECT_EQ(outside.windows.scans, 1);
  runFor(100);
  EXPECT_EQ(outside.windows.scans, 2);
}

TEST_F(TickTest, AClockThatWentBackPollsNoMoreOftenThanBefore) {
  tick(app);
  clock.time -= 500'000;
  runFor(3000);
  EXPECT_EQ(outside.windows.scans, 1);
}

TEST_F(TickTest, AfterALongSleepThereIsOnePollAndNoBurst) {
  tick(app);
  clock.advance(8 * 3600 * 1000);
  tick(app);
  tick(app);
  runFor(1000);
  EXPECT_EQ(outside.windows.scans, 2);
}

TEST_F(TickTest, TheTimeOfAPollIsThatOfItsBeginningHoweverLongItTakes) {
  waitForPoll();
  outside.automation.beforeCall = [this](const std::string& entry) {
    if (entry == "running KWPP.Application") clock.advance(5000);
  };
  waitForPoll();
  EXPECT_EQ(outside.windows.scans, 2);
  tick(app);
  EXPECT_EQ(outside.windows.scans, 3) << "five seconds later, the next one is due at once";
}

TEST_F(TickTest, ATickInTheMidstOfAPollPollsNoFurther) {
  int depth = 0;
  outside.automation.beforeCall = [&](const std::string& /*entry*/) {
    if (++depth == 1) tick(app);
    --depth;
  };
  startShow(kDeck);
  waitForPoll();
  EXPECT_EQ(polls(), 1);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(TickTest, TheProgramMayEndInTheMidstOfAPoll) {
  startShow(kDeck);
  outside.automation.beforeCall = [this](const std::string& entry) {
    if (entry != "get view.Slide" || loop.hasQuit) return;
    runCommand(app, kCommandExit);
    onClockDestroyed(app);
  };
  runFor(3000);
  EXPECT_TRUE(loop.hasQuit);
  EXPECT_FALSE(clockWindow.visible);
  finishApp(app);
}

TEST_F(TickTest, TheFileSystemIsAskedOnceForThePathOfAShow) {
  app.settings.skipList = {kOtherDeck};
  app.deckSwitch.target = kOtherDeck;
  files().putFile(kDeck, "");
  startShow(kDeck);
  files().done.clear();
  tick(app);
  ASSERT_TRUE(app.lastStatus.running);
  EXPECT_EQ(std::ranges::count(files().done, kDeck, &FilesFake::Step::path), 1);
}

TEST_F(TickTest, AShowThatAppearsStartsTheTimerAtTheNextPoll) {
  waitForPoll();
  startShow(kDeck);
  runFor(1400);
  EXPECT_EQ(phase(), TimerPhase::Idle);
  runFor(100);
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(TickTest, AShowThatRunsAlreadyStartsTheTimerAtTheFirstTick) {
  startShow(kDeck);
  tick(app);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(TickTest, AShowThatEndsPausesTheTimerWhileItsDeckStaysOpen) {
  startShow(kDeck);
  runFor(3000);
  endShow();
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Paused);
  const int64_t paused = elapsedMs();
  runFor(600'000);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  EXPECT_EQ(elapsedMs(), paused);
}

TEST_F(TickTest, TheSameShowTenMinutesLaterGoesOnFromThePausedTimeWithItsFlags) {
  app.settings.duration = 2;
  startShow(kDeck);
  runFor(6000);
  ASSERT_TRUE(app.timer.expiredFired);
  endShow();
  waitForPoll();
  const int64_t paused = elapsedMs();
  runFor(600'000);
  outside.addShowWindow(500);
  program->addShow(program->decks.front(), 500);
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), paused) << "it starts at the poll that sees the show";
  EXPECT_TRUE(app.timer.expiredFired);
}

TEST_F(TickTest, AClosedDocumentResetsTheTimerAtOnceWithoutADelay) {
  startShow(kDeck);
  runFor(3000);
  endShow();
  closeDecks();
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Idle);
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(TickTest, AClosedDocumentResetsTheTimerAfterTheDelayAndEndsTheBlinkWithIt) {
  app.settings.resetDelay = 30;
  startShow(kDeck);
  runFor(3000);
  endShow();
  closeDecks();
  waitForPoll();
  startBlink(app, 0);
  runFor(29'900);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  EXPECT_TRUE(app.blink.active);
  runFor(100);
  EXPECT_EQ(phase(), TimerPhase::Idle);
  EXPECT_FALSE(app.blink.active) << "a delayed reset undoes what is in flight";
}

TEST_F(TickTest, AnotherSpellingOfItsPathIsNoOtherDocument) {
  startShow(kDeck);
  runFor(3000);
  program->decks.front()->path = u"C:/talks/./demo.pptx";
  waitForPoll();
  EXPECT_GE(elapsedMs(), 2900);
}

TEST_F(TickTest, AnotherDocumentWithinTheDelayCancelsTheResetAndStartsFromZero) {
  app.settings.resetDelay = 30;
  startShow(kDeck);
  runFor(6000);
  endShow();
  closeDecks();
  waitForPoll();
  ASSERT_NE(app.follower.resetAtMs, 0u);
  startShow(kOtherDeck);
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 0);
  runFor(40'000);
  EXPECT_EQ(elapsedMs(), 40'000);
}

TEST_F(TickTest, ATimerStartedByHandKeepsItsTimeWhenTheShowAppears) {
  runFor(1500);
  runCommand(app, kCommandToggleTimer);
  runFor(5000);
  startShow(kDeck);
  runFor(3000);
  EXPECT_EQ(elapsedMs(), 8000);
}

TEST_F(TickTest, ATimerPausedByHandStaysPausedWhileTheShowGoesOn) {
  startShow(kDeck);
  runFor(3000);
  runCommand(app, kCommandToggleTimer);
  runFor(10'000);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  endShow();
  waitForPoll();
  outside.addShowWindow(500);
  program->addShow(program->decks.front(), 500);
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Running) << "a show that was lost and found again resumes it";
}

TEST_F(TickTest, ManualModeDropsAPendingResetAndLeavesTheTimerPaused) {
  app.settings.resetDelay = 30;
  startShow(kDeck);
  runFor(3000);
  endShow();
  closeDecks();
  waitForPoll();
  runCommand(app, kCommandManualMode);
  runFor(60'000);
  EXPECT_EQ(phase(), TimerPhase::Paused);
}

TEST_F(TickTest, InManualModeAShowNeverMovesTheTimer) {
  app.settings.autoMode = false;
  startShow(kDeck);
  runFor(5000);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(TickTest, EachNewSlideRestartsTheClockOnceAPollHasSeenIt) {
  app.settings.perSlide = true;
  startShow(kDeck);
  runFor(6000);
  turnTo(2);
  waitForPoll();
  EXPECT_LT(elapsedMs(), 1500);
}

TEST_F(TickTest, SeveralSlidesBetweenTwoPollsAreOneRestart) {
  app.settings.perSlide = true;
  startShow(kDeck);
  tick(app);
  runFor(1500);
  turnTo(2);
  runFor(500);
  turnTo(3);
  runFor(500);
  turnTo(4);
  runFor(500);
  EXPECT_EQ(elapsedMs(), 0);
  runFor(1500);
  EXPECT_EQ(elapsedMs(), 1500);
}

TEST_F(TickTest, ASlideLeftAndReturnedToBetweenTwoPollsIsNone) {
  app.settings.perSlide = true;
  startShow(kDeck);
  tick(app);
  turnTo(2);
  runFor(700);
  turnTo(1);
  runFor(800);
  EXPECT_EQ(elapsedMs(), 1500);
}

TEST_F(TickTest, ANewSlideArmsTheExpiryAgain) {
  app.settings.perSlide = true;
  app.settings.duration = 2;
  startShow(kDeck);
  runFor(2100);
  ASSERT_TRUE(app.timer.expiredFired);
  turnTo(2);
  waitForPoll();
  EXPECT_FALSE(app.timer.expiredFired);
  runFor(2000);
  EXPECT_TRUE(app.timer.expiredFired);
}

TEST_F(TickTest, ARestartByTheShowStopsTheBlink) {
  app.settings.perSlide = true;
  startShow(kDeck);
  runFor(3000);
  startBlink(app, 0);
  turnTo(2);
  waitForPoll();
  EXPECT_FALSE(app.blink.active);
}

TEST_F(TickTest, AnImmediateResetStopsTheBlink) {
  startShow(kDeck);
  runFor(3000);
  startBlink(app, 100);
  endShow();
  closeDecks();
  waitForPoll();
  ASSERT_EQ(phase(), TimerPhase::Idle);
  EXPECT_FALSE(app.blink.active);
}

TEST_F(TickTest, AnExcludedShowPausesAndResetsTheTimerThoughTheFirstDocumentIsOpen) {
  app.settings.skipList = {kOtherDeck};
  startShow(kDeck);
  runFor(3000);
  endShow();
  startShow(kOtherDeck);
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Idle);
  EXPECT_TRUE(app.lastExcluded);
}

TEST_F(TickTest, AShowKnownOnlyByItsWindowTitleCanBeExcluded) {
  app.settings.skipList = {kDeck};
  outside.addShowWindow(500, u"PowerPoint Slide Show - [demo.pptx]");
  waitForPoll();
  EXPECT_TRUE(app.lastStatus.running);
  EXPECT_EQ(app.lastStatus.provider, kNativeProvider);
  EXPECT_TRUE(app.lastExcluded);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(TickTest, AShowThatEndsOrTurnsExcludedLeavesTheBlackScreen) {
  startShow(kDeck);
  waitForPoll();
  setBlack(app, true);
  waitForPoll();
  EXPECT_TRUE(blackScreen.covering);
  endShow();
  waitForPoll();
  EXPECT_FALSE(blackScreen.covering);

  startShow(kOtherDeck);
  waitForPoll();
  setBlack(app, true);
  ASSERT_TRUE(app.blackActive);
  app.settings.skipList = {kOtherDeck};
  waitForPoll();
  EXPECT_FALSE(app.blackActive);
}

TEST_F(TickTest, ANewShowRaisesTheBlackWindowsAndTheClockOnce) {
  startShow(kDeck);
  waitForPoll();
  EXPECT_EQ(times("raise"), 1);
  EXPECT_EQ(blackScreen.raises, 1);
  runFor(6000);
  EXPECT_EQ(times("raise"), 1) << "the same show again is no new show";
  program->shows.front()->window = 501;
  outside.addShowWindow(501);
  waitForPoll();
  EXPECT_EQ(times("raise"), 2) << "another window is another show";
  program->shows.front()->deck->path = kOtherDeck;
  waitForPoll();
  EXPECT_EQ(times("raise"), 3) << "another document is another show";
}

TEST_F(TickTest, TheClockIsRaisedAfterTheBlackWindows) {
  waitForPoll();
  startShow(kDeck);
  clockWindow.calls.clear();
  blackScreen.log = &clockWindow.calls;
  waitForPoll();
  const auto black = std::ranges::find(clockWindow.calls, "raise black");
  EXPECT_EQ(std::count(black, clockWindow.calls.end(), "raise"), 1);
}

TEST_F(TickTest, AHiddenClockIsNotRaised) {
  runCommand(app, kCommandHideClock);
  startShow(kDeck);
  waitForPoll();
  EXPECT_EQ(times("raise"), 0);
  EXPECT_EQ(blackScreen.raises, 1);
}

TEST_F(TickTest, StageOneFiresBeforeStageTwoAndBothBeforeTheExpiry) {
  app.settings.prompt1 = {.enabled = true, .advance = 1, .blinkSeconds = 1};
  app.settings.prompt2 = {.enabled = true, .advance = 1, .blinkSeconds = 2};
  app.settings.blinkSeconds = 3;
  app.settings.duration = 900;
  runCommand(app, kCommandToggleTimer);
  runFor(5000);
  app.settings.duration = 3;  // now all three are due in one tick
  runFor(100);
  EXPECT_EQ(app.timer.promptsFired, 3u);
  EXPECT_TRUE(app.timer.expiredFired);
  EXPECT_EQ(app.blink.endMs, clock.nowMs() + 3000) << "the last to fire has the last word";
}

TEST_F(TickTest, EachStageFiresOnceARun) {
  app.settings.duration = 10;
  app.settings.prompt1 = {.enabled = true, .advance = 5, .blinkSeconds = 1};
  app.settings.prompt2 = {};
  runCommand(app, kCommandToggleTimer);
  runFor(4900);
  EXPECT_FALSE(app.blink.active);
  runFor(100);
  EXPECT_TRUE(app.blink.active);
  runFor(3000);
  EXPECT_FALSE(app.blink.active);
}

TEST_F(TickTest, AHideRuleHidesTheClockAndBringsItBack) {
  app.settings.hideNoDocument = true;
  runFor(1500);
  EXPECT_FALSE(clockWindow.visible);
  EXPECT_TRUE(app.hiddenByRule);
  startShow(kDeck);
  waitForPoll();
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_FALSE(app.hiddenByRule);
}

TEST_F(TickTest, AClockThatTheUserHidStaysHidden) {
  runCommand(app, kCommandHideClock);
  runFor(3000);
  EXPECT_FALSE(clockWindow.visible);
}

TEST_F(TickTest, AClockShownByTheUserWhileARuleHoldsIsHiddenAtTheNextTick) {
  app.settings.hideNoDocument = true;
  runFor(1500);
  runCommand(app, kCommandShowClock);
  EXPECT_TRUE(clockWindow.visible);
  runFor(100);
  EXPECT_FALSE(clockWindow.visible);
}

TEST_F(TickTest, TheHideExcludedRuleHidesTheClockWhileAnExcludedFileIsShown) {
  app.settings.hideExcluded = true;
  app.settings.skipList = {kDeck};
  startShow(kDeck);
  waitForPoll();
  EXPECT_FALSE(clockWindow.visible);
}

TEST_F(TickTest, WithADurationOfZeroTheHideZeroRuleHidesTheClockAtOnceUnlessTheScreenGoesBlack) {
  app.settings.duration = 0;
  app.settings.hideZero = true;
  tick(app);
  EXPECT_FALSE(clockWindow.visible);
  app.settings.black = true;
  tick(app);
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(TickTest, DuringTheSwitchHoldTheClockStaysHiddenWhateverTheRulesSay) {
  app.deckSwitch.hold = true;
  app.deckSwitch.target = kDeck;
  runFor(100);
  EXPECT_FALSE(clockWindow.visible);
  EXPECT_TRUE(app.hiddenByRule);
}

TEST_F(TickTest, TheHoldEndsAtTheFirstPollThatNoLongerSeesTheTargetAfterHavingSeenIt) {
  app.deckSwitch.hold = true;
  app.deckSwitch.target = kDeck;
  app.deckSwitch.pulse.untilMs = app.deckSwitch.pulse.nextMs = clock.nowMs() + 60'000;
  waitForPoll();
  EXPECT_TRUE(app.deckSwitch.hold) << "not seen yet";
  startShow(kDeck);
  waitForPoll();
  EXPECT_TRUE(app.deckSwitch.holdSeen);
  EXPECT_TRUE(app.deckSwitch.hold);
  endShow();
  waitForPoll();
  EXPECT_FALSE(app.deckSwitch.hold);
  EXPECT_EQ(app.deckSwitch.pulse.nextMs, 0u);
  EXPECT_EQ(app.deckSwitch.pulse.untilMs, 0u);
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(TickTest, RepaintsOnlyWhenTheTextChanges) {
  runCommand(app, kCommandToggleTimer);
  runFor(100);
  clockWindow.invalidations = 0;
  runFor(10'000);
  EXPECT_EQ(clockWindow.invalidations, 10);
}

TEST_F(TickTest, RepaintsWhenTheBlinkChangesItsPhase) {
  runFor(100);
  clockWindow.invalidations = 0;
  startBlink(app, 0);
  runFor(2000);
  EXPECT_EQ(clockWindow.invalidations, 5) << "on, and then at each half second";
}

TEST_F(TickTest, AnAlertThatBeginsAfterAPaintOfTheDarkPhaseIsShownAtOnce) {
  app.settings.duration = 900;
  runCommand(app, kCommandToggleTimer);
  runFor(1000);
  startBlink(app, 0);
  runFor(400);
  clock.advance(100);  // dark from here on; the tick is late
  clockWindow.invalidate();
  clockWindow.paintIfDue();
  EXPECT_FALSE(seen.isAlert);
  app.settings.prompt1 = {.enabled = true, .blinkWindow = true, .advance = 899};
  tick(app);
  clockWindow.paintIfDue();
  EXPECT_TRUE(seen.isAlert) << "the tick before saw a bright phase too, of another alert";
}

TEST_F(TickTest, AnIdleClockIsPaintedOnceAndNeverAgain) {
  runFor(100);
  clockWindow.invalidations = 0;
  runFor(60'000);
  EXPECT_EQ(clockWindow.invalidations, 0);
}

TEST_F(TickTest, TheClockPublishesWhatItShows) {
  app.settings.duration = 61;
  runCommand(app, kCommandToggleTimer);
  runFor(100);
  EXPECT_EQ(clockWindow.text, u"01:01");
  runFor(61'000);
  EXPECT_EQ(clockWindow.text, u"00:00");
  runFor(1000);
  EXPECT_EQ(clockWindow.text, u"已超时 00:01");
}

TEST_F(TickTest, AProgramThatDiesWithItsWindowsHasClosedItsDocument) {
  startShow(kDeck);
  runFor(3000);
  program->dead = true;
  outside.windows.windows.clear();
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(TickTest, AProgramThatDiesLeavesTheClockGoingOnByItsWindow) {
  startShow(kDeck);
  runFor(3000);
  program->dead = true;
  outside.windows.windows.front().title = u"PowerPoint Slide Show - [demo.pptx]";
  runFor(3000);
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 5900);
}

}  // namespace
}  // namespace mrl
