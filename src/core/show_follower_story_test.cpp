// Whole sequences: every transition of the timer, delays, and time sources that misbehave.
#include <limits>

#include "core/show_follower_fixture.h"

namespace mrl {
namespace {

// Every transition of the timer.

class PhaseTest : public FollowerFixture {
 protected:
  void toggle() {
    if (timer.phase == TimerPhase::Running) {
      pauseTimer(timer, nowMs);
    } else {
      startTimer(timer, nowMs);
    }
  }
};

TEST_F(PhaseTest, AnIdleTimerThatIsToggledRunsFromZero) {
  toggle();
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(PhaseTest, AnIdleTimerRunsWhenATrackedShowAppears) {
  see(noShow());
  see(showOf(kTalk));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(PhaseTest, ARunningTimerThatIsToggledPausesWithItsStretch) {
  toggle();
  waitSeconds(10);
  toggle();
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 10'000);
}

TEST_F(PhaseTest, ARunningTimerPausesWithItsStretchWhenTheShowIsGone) {
  runTalkForAMinute();
  see(noShow());
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 60'000);
}

TEST_F(PhaseTest, ARunningTimerPausesWithItsStretchWhenTheShowIsExcluded) {
  settings.resetDelay = 1;
  runTalkForAMinute();
  see(excludedShowOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 60'000);
}

TEST_F(PhaseTest, ARunningTimerRunsOnFromZeroOnAnotherDocument) {
  runTalkForAMinute();
  see(showOf(kOther));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 0);
  EXPECT_TRUE(noneFired());
}

TEST_F(PhaseTest, ARunningTimerRunsOnFromZeroOnAnotherSlideWithPerSlide) {
  settings.perSlide = true;
  runTalkForAMinute();
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 0);
  EXPECT_TRUE(noneFired());
}

TEST_F(PhaseTest, APausedTimerThatIsToggledGoesOn) {
  toggle();
  waitSeconds(10);
  toggle();
  waitSeconds(10);
  toggle();
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(timer.startedAtMs, nowMs);
  EXPECT_EQ(elapsedMs(), 10'000);
}

TEST_F(PhaseTest, APausedTimerGoesOnWithItsFlagsWhenATrackedShowAppears) {
  runTalkForAMinute();
  see(noShow());
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(PhaseTest, ATimerThatIsResetIsIdleWhateverItWas) {
  for (const TimerPhase phase : {TimerPhase::Idle, TimerPhase::Running, TimerPhase::Paused}) {
    timer = {.phase = phase, .elapsedMs = 9, .startedAtMs = 9, .expiredFired = true};
    resetTimer(timer);
    EXPECT_EQ(timer, TimerState{});
  }
}

TEST_F(PhaseTest, APausedTimerIsIdleWhenTheDocumentClosesWithoutADelay) {
  runTalkForAMinute();
  see(noShow());
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(PhaseTest, APausedTimerIsIdleWhenTheDelayIsOver) {
  settings.resetDelay = 5;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  waitSeconds(5);
  tick();
  EXPECT_EQ(timer, TimerState{});
}

// The delayed reset.

class PendingResetTest : public FollowerFixture {
 protected:
  /// The talk's document has just closed; the reset is due in half a minute.
  void closeTalk() {
    settings.resetDelay = 30;
    runTalkForAMinute();
    see(noShow(DocumentState::Closed));
  }
};

TEST_F(PendingResetTest, WaitsForItsTime) {
  closeTalk();
  const TimerState before = timer;
  nowMs += 29'999;
  tick();
  EXPECT_EQ(timer, before);
  EXPECT_NE(follower.resetAtMs, 0u);
}

TEST_F(PendingResetTest, ResetsWhenItsTimeIsReached) {
  closeTalk();
  waitSeconds(30);
  tick();
  EXPECT_EQ(timer, TimerState{});
  EXPECT_EQ(follower.resetAtMs, 0u);
}

TEST_F(PendingResetTest, ResetsATimerThatWasResumedByHandMeanwhile) {
  closeTalk();
  startTimer(timer, nowMs);
  waitSeconds(30);
  tick();
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(PendingResetTest, IsDroppedInManualModeBeforeAndAfterItsTime) {
  for (const uint64_t seconds : {0, 60}) {
    closeTalk();
    waitSeconds(seconds);
    settings.autoMode = false;
    const TimerState before = timer;
    tick();
    EXPECT_EQ(timer, before);
    EXPECT_EQ(follower.resetAtMs, 0u);
    settings.autoMode = true;
  }
}

TEST_F(PendingResetTest, IsDroppedUnderATrackedShowBeforeAndAfterItsTime) {
  for (const uint64_t seconds : {0, 60}) {
    closeTalk();
    waitSeconds(seconds);
    follower.wasTracked = true;
    const TimerState before = timer;
    tick();
    EXPECT_EQ(timer, before);
    EXPECT_EQ(follower.resetAtMs, 0u);
  }
}

TEST_F(PendingResetTest, WithoutOneNothingIsReset) {
  runTalkForAMinute();
  see(noShow());
  const TimerState before = timer;
  nowMs = std::numeric_limits<uint64_t>::max();
  tick();
  EXPECT_EQ(timer, before);
}

TEST_F(PendingResetTest, HoldsNoMatterHowTheDelayIsChangedMeanwhile) {
  closeTalk();
  settings.resetDelay = 0;
  waitSeconds(29);
  see(noShow(DocumentState::Closed));
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  waitSeconds(1);
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Idle);
}

// Typical talks.

class TalkTest : public FollowerFixture {};

TEST_F(TalkTest, TheSameShowTenMinutesLaterGoesOnFromThePausedTime) {
  runTalkForAMinute();
  see(noShow());
  for (int poll = 0; poll < 400; ++poll) {
    nowMs += 1'500;
    see(noShow());
    tick();
  }
  see(showOf(kTalk));
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(TalkTest, AClosedDocumentLeavesTheTimerPausedForTheDelayAndThenIdle) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  for (int second = 0; second < 30; ++second) {
    see(noShow(DocumentState::Closed));
    tick();
    EXPECT_EQ(timer.phase, TimerPhase::Paused);
    EXPECT_EQ(timer.elapsedMs, 60'000);
    waitSeconds(1);
  }
  tick();
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(TalkTest, AnotherDocumentWithinTheDelayCancelsItAndStartsFromZero) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  waitSeconds(20);
  see(showOf(kOther));
  tick();
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
  waitSeconds(20);
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 20'000);
}

TEST_F(TalkTest, TheSameDocumentWithinTheDelayCancelsItAndGoesOn) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  waitSeconds(20);
  see(showOf(kTalk));
  waitSeconds(20);
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 80'000);
  EXPECT_TRUE(allFired());
}

TEST_F(TalkTest, AnExcludedShowInPlaceOfTheTalkPausesAndResetsThoughTheTalkIsOpen) {
  runTalkForAMinute();
  see(excludedShowOf(kOther));  // a running show reports its document as open
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(TalkTest, AnExcludedShowInPlaceOfTheTalkPausesForTheDelay) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(excludedShowOf(kOther));
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  waitSeconds(30);
  see(excludedShowOf(kOther));
  tick();
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(TalkTest, ATimerStartedByHandBeforeTheShowKeepsItsTime) {
  see(noShow());
  startTimer(timer, nowMs);
  waitSeconds(45);
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 45'000);
}

TEST_F(TalkTest, ATimerPausedByHandStaysPausedUntilTheShowIsLostAndFound) {
  runTalkForAMinute();
  pauseTimer(timer, nowMs);
  for (int poll = 0; poll < 10; ++poll) {
    waitSeconds(2);
    see(showOf(kTalk));
    EXPECT_EQ(timer.phase, TimerPhase::Paused);
  }
  see(noShow());
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 60'000);
}

TEST_F(TalkTest, ATimerPausedByHandRunsOnWhenTheUserResumesIt) {
  runTalkForAMinute();
  pauseTimer(timer, nowMs);
  waitSeconds(10);
  see(showOf(kTalk));
  startTimer(timer, nowMs);
  waitSeconds(10);
  see(showOf(kTalk));
  EXPECT_EQ(elapsedMs(), 70'000);
}

TEST_F(TalkTest, GoingManualDropsThePendingResetAndLeavesTheTimerPaused) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  settings.autoMode = false;
  see(noShow(DocumentState::Closed));  // as the mode change itself does
  EXPECT_EQ(follower.resetAtMs, 0u);
  settings.autoMode = true;
  see(noShow(DocumentState::Closed));
  waitSeconds(60);
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 60'000);
}

TEST_F(TalkTest, AFailedPollPausesTheTimerAndTheNextGoodOneResumesIt) {
  runTalkForAMinute();
  see({});
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  waitSeconds(2);
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 60'000);
}

// Time sources that misbehave.

class FollowerClockTest : public FollowerFixture {};

TEST_F(FollowerClockTest, AClockThatRunsBackwardsOnlyPutsAPendingResetOff) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  nowMs = 5;
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 60'000);
}

TEST_F(FollowerClockTest, AJumpOfHoursCarriesAPendingResetOut) {
  settings.resetDelay = 3'600;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  waitSeconds(36'000);
  tick();
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(FollowerClockTest, AShowThatEndsBeforeItBeganAddsNoTime) {
  see(showOf(kTalk));
  nowMs -= 1;
  see(noShow());
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 0);
}

TEST_F(FollowerClockTest, NoReadingIsTooGreat) {
  constexpr uint64_t kLatestMs = std::numeric_limits<uint64_t>::max();
  settings.resetDelay = 3'600;
  for (const uint64_t reading : {kLatestMs, uint64_t{0}, uint64_t{1} << 63, kLatestMs / 2}) {
    nowMs = reading;
    see(showOf(kTalk));
    nowMs = kLatestMs - reading;
    see(noShow(DocumentState::Closed));
    EXPECT_GE(elapsedMs(), 0);
    tick();
    EXPECT_GE(elapsedMs(), 0);
  }
}

}  // namespace
}  // namespace mrl
