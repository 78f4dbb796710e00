#include "core/show_follower.h"

#include "core/show_follower_fixture.h"

namespace mrl {
namespace {

class ShowFollowerTest : public FollowerFixture {};

TEST_F(ShowFollowerTest, ANewFollowerRemembersNothing) {
  EXPECT_EQ(follower.resetAtMs, 0u);
  EXPECT_TRUE(follower.lastSlideKey.empty() && follower.lastPath.empty() &&
              follower.lastTitle.empty());
  EXPECT_FALSE(follower.wasTracked || follower.lastAutoMode || follower.primed ||
               follower.followedShow || follower.switchPending || follower.switchSeen);
}

// The first update and the change of mode.

TEST_F(ShowFollowerTest, TheFirstUpdatePrimesAndNotesTheMode) {
  see(noShow());
  EXPECT_TRUE(follower.primed);
  EXPECT_TRUE(follower.lastAutoMode);
}

TEST_F(ShowFollowerTest, TheFirstUpdateCountsAsAChangeOfMode) {
  follower.wasTracked = true;  // so that nothing else can start the timer
  follower.lastAutoMode = true;
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(ShowFollowerTest, AShowThatRunsAlreadyAtTheFirstPollStartsTheTimer) {
  see(showOf(kTalk));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(ShowFollowerTest, AChangeOfModeDropsAPendingResetAndTheFollowedShow) {
  for (const bool autoMode : {false, true}) {
    follower = {.lastAutoMode = !autoMode, .primed = true, .followedShow = true, .resetAtMs = 1};
    settings.autoMode = autoMode;
    see(noShow(DocumentState::Closed));
    EXPECT_EQ(follower.resetAtMs, 0u);
    EXPECT_FALSE(follower.followedShow);
    EXPECT_EQ(follower.lastAutoMode, autoMode);
  }
}

TEST_F(ShowFollowerTest, WithoutAChangeOfModeAPendingResetStays) {
  see(noShow());
  follower.resetAtMs = 77;
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(follower.resetAtMs, 77u);
}

TEST_F(ShowFollowerTest, TurningAutomaticDuringAShowStartsAnIdleTimer) {
  settings.autoMode = false;
  see(showOf(kTalk));
  ASSERT_EQ(timer.phase, TimerPhase::Idle);
  settings.autoMode = true;
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(ShowFollowerTest, TurningAutomaticDuringAShowResumesAPausedTimer) {
  settings.autoMode = false;
  timer = {.phase = TimerPhase::Paused, .elapsedMs = 5'000};
  see(showOf(kTalk));
  settings.autoMode = true;
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 5'000);
}

TEST_F(ShowFollowerTest, TurningAutomaticDuringAShowLeavesARunningTimerAlone) {
  settings.autoMode = false;
  startTimer(timer, nowMs);
  see(showOf(kTalk));
  waitSeconds(10);
  settings.autoMode = true;
  see(showOf(kTalk));
  EXPECT_EQ(elapsedMs(), 10'000);
}

TEST_F(ShowFollowerTest, TurningAutomaticAsTheShowEndsPausesTheTimerButForgetsTheShow) {
  settings.autoMode = false;
  startTimer(timer, nowMs);
  see(showOf(kTalk));
  settings.autoMode = true;
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer.phase, TimerPhase::Paused);  // not reset
}

TEST_F(ShowFollowerTest, TurningAutomaticAsTheShowTurnsExcludedResets) {
  settings.autoMode = false;
  startTimer(timer, nowMs);
  see(showOf(kTalk));
  settings.autoMode = true;
  see(excludedShowOf(kTalk));
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(ShowFollowerTest, TurningManualDuringAShowLetsTheTimerRunOn) {
  runTalkForAMinute();
  settings.autoMode = false;
  see(showOf(kTalk));
  waitSeconds(10);
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 70'000);
}

// Manual mode.

TEST_F(ShowFollowerTest, InManualModeTheTimerNeverReactsToAShow) {
  settings.autoMode = false;
  settings.perSlide = true;
  for (const TimerPhase phase : {TimerPhase::Idle, TimerPhase::Running, TimerPhase::Paused}) {
    const TimerState before{
        .phase = phase, .elapsedMs = 5'000, .startedAtMs = 3, .promptsFired = 1};
    timer = before;
    for (const ShowObservation& seen :
         {showOf(kTalk), showOf(kTalk, u'2'), showOf(kOther), excludedShowOf(kTalk),
          showTitled(kOtherTitle), noShow(), noShow(DocumentState::Closed)}) {
      see(seen);
      EXPECT_EQ(timer, before);
      EXPECT_EQ(follower.resetAtMs, 0u);
    }
  }
}

TEST_F(ShowFollowerTest, InManualModeTheBookkeepingGoesOn) {
  settings.autoMode = false;
  settings.perSlide = true;
  see(showOf(kTalk, u'4'));
  EXPECT_TRUE(follower.primed);
  EXPECT_TRUE(follower.wasTracked);
  EXPECT_EQ(follower.lastSlideKey, std::u16string(kTalk) + u"#4");
  see(noShow());
  EXPECT_FALSE(follower.wasTracked);
  EXPECT_TRUE(follower.lastSlideKey.empty());
}

TEST_F(ShowFollowerTest, InManualModeNoDocumentIsRemembered) {
  settings.autoMode = false;
  see(showOf(kTalk));
  see(showTitled(kOtherTitle));
  EXPECT_FALSE(follower.followedShow);
  EXPECT_TRUE(follower.lastPath.empty());
  EXPECT_TRUE(follower.lastTitle.empty());
}

// A tracked show.

TEST_F(ShowFollowerTest, ATrackedShowDropsAPendingResetAndIsFollowed) {
  see(noShow());
  follower.resetAtMs = nowMs + 5'000;
  see(showOf(kTalk));
  EXPECT_EQ(follower.resetAtMs, 0u);
  EXPECT_TRUE(follower.followedShow);
}

TEST_F(ShowFollowerTest, AnotherDocumentStartsFromZero) {
  runTalkForAMinute();
  see(showOf(kOther));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(ShowFollowerTest, AnotherDocumentRunsEvenATimerPausedByHand) {
  runTalkForAMinute();
  pauseTimer(timer, nowMs);
  see(showOf(kOther));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(ShowFollowerTest, AnotherDocumentAfterAPauseStartsFromZero) {
  runTalkForAMinute();
  see(noShow());
  waitSeconds(600);
  see(showOf(kOther));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(ShowFollowerTest, AnotherDocumentWithPerSlideStartsFromZeroAsWell) {
  settings.perSlide = true;
  see(showOf(kTalk, u'1'));
  see(showOf(kOther, u'2'));
  EXPECT_EQ(follower.lastSlideKey, std::u16string(kOther) + u"#2");
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(ShowFollowerTest, AShowClearsWhatAnIdleTimerStillHeld) {
  see(noShow());
  timer = {.phase = TimerPhase::Idle, .elapsedMs = 9, .expiredFired = true, .promptsFired = 3};
  see(showOf(kTalk));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(ShowFollowerTest, AShowResumesAPausedTimerWithItsTimeAndFlags) {
  runTalkForAMinute();
  see(noShow());
  waitSeconds(5);
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(timer.startedAtMs, nowMs);
  EXPECT_EQ(elapsedMs(), 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(ShowFollowerTest, AShowLeavesARunningTimerAlone) {
  see(noShow());
  startTimer(timer, nowMs);
  fireAll();
  const TimerState before = timer;
  waitSeconds(10);
  see(showOf(kTalk));
  EXPECT_EQ(timer, before);
}

TEST_F(ShowFollowerTest, AShowThatGoesOnStartsNothing) {
  see(showOf(kTalk));
  resetTimer(timer);
  waitSeconds(2);
  see(showOf(kTalk));
  EXPECT_EQ(timer, TimerState{});
}

// The end of a tracked show.

TEST_F(ShowFollowerTest, TheEndOfAShowPausesTheTimer) {
  runTalkForAMinute();
  see(noShow());
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(ShowFollowerTest, OnlyTheMomentOfTheEndPausesTheTimer) {
  see(showOf(kTalk));
  see(noShow());
  startTimer(timer, nowMs);  // by hand, after the end
  see(noShow());
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(ShowFollowerTest, AShowThatTurnsExcludedResetsAtOnceWithoutADelay) {
  runTalkForAMinute();
  see(excludedShowOf(kTalk));
  EXPECT_EQ(timer, TimerState{});
  EXPECT_FALSE(follower.followedShow);
  EXPECT_EQ(follower.resetAtMs, 0u);
}

TEST_F(ShowFollowerTest, AShowThatTurnsExcludedPausesAndResetsAfterTheDelay) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(excludedShowOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 60'000);
  EXPECT_FALSE(follower.followedShow);
  EXPECT_EQ(follower.resetAtMs, nowMs + 30'000);
}

TEST_F(ShowFollowerTest, AnExcludedShowThatFollowsAnEndedOneResetsNothing) {
  runTalkForAMinute();
  see(noShow());
  see(excludedShowOf(kOther));
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_TRUE(follower.followedShow);
}

TEST_F(ShowFollowerTest, AnExcludedShowStartsNothing) {
  see(excludedShowOf(kTalk));
  EXPECT_EQ(timer, TimerState{});
  EXPECT_FALSE(follower.wasTracked);
  EXPECT_FALSE(follower.followedShow);
}

TEST_F(ShowFollowerTest, AShowNoLongerExcludedStartsTheTimer) {
  see(excludedShowOf(kTalk));
  see(showOf(kTalk));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

// The closing of the document.

TEST_F(ShowFollowerTest, TheClosingOfTheDocumentResetsAtOnceWithoutADelay) {
  runTalkForAMinute();
  see(noShow());
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer, TimerState{});
  EXPECT_FALSE(follower.followedShow);
}

TEST_F(ShowFollowerTest, ADocumentThatClosesWithItsShowResetsInOnePoll) {
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(ShowFollowerTest, ADelayCountsFromThePollThatSawTheDocumentClosed) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(noShow());
  waitSeconds(100);
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(follower.resetAtMs, nowMs + 30'000);
}

TEST_F(ShowFollowerTest, LaterPollsDoNotPutTheResetOff) {
  settings.resetDelay = 30;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  const uint64_t due = follower.resetAtMs;
  waitSeconds(10);
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(follower.resetAtMs, due);
}

TEST_F(ShowFollowerTest, TheLongestDelayCountsInFull) {
  settings.resetDelay = 0xFFFF'FFFF;
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(follower.resetAtMs, nowMs + 4'294'967'295'000);
}

TEST_F(ShowFollowerTest, ADocumentThatIsOpenOrUnknownResetsNothing) {
  runTalkForAMinute();
  for (const DocumentState state : {DocumentState::Open, DocumentState::Unknown}) {
    see(noShow(state));
    waitSeconds(3'600);
    EXPECT_EQ(timer.phase, TimerPhase::Paused);
    EXPECT_EQ(timer.elapsedMs, 60'000);
    EXPECT_TRUE(follower.followedShow);
  }
}

TEST_F(ShowFollowerTest, ADocumentThatWasNeverFollowedResetsNothing) {
  see(noShow());
  startTimer(timer, nowMs);
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(ShowFollowerTest, AClosedDocumentResetsOnlyOnce) {
  runTalkForAMinute();
  see(noShow(DocumentState::Closed));
  startTimer(timer, nowMs);  // by hand
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(ShowFollowerTest, TheClosingResetsEvenATimerResumedByHand) {
  runTalkForAMinute();
  see(noShow());
  startTimer(timer, nowMs);
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(ShowFollowerTest, ATrackedShowIsNeverClosed) {
  runTalkForAMinute();
  ShowObservation seen = showOf(kTalk);
  seen.documentState = DocumentState::Closed;
  see(seen);
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_TRUE(follower.followedShow);
}

// What is kept for the next update.

TEST_F(ShowFollowerTest, TheSlideIsRememberedOnlyOfATrackedShowWithPerSlide) {
  see(showOf(kTalk));
  EXPECT_TRUE(follower.lastSlideKey.empty());
  settings.perSlide = true;
  see(showOf(kTalk));
  EXPECT_EQ(follower.lastSlideKey, std::u16string(kTalk) + u"#1");
  see(excludedShowOf(kTalk));
  EXPECT_TRUE(follower.lastSlideKey.empty());
  see(showOf(kTalk));
  settings.perSlide = false;
  see(showOf(kTalk));
  EXPECT_TRUE(follower.lastSlideKey.empty());
}

TEST_F(ShowFollowerTest, TrackedMeansAShowThatIsNotExcluded) {
  see(showOf(kTalk));
  EXPECT_TRUE(follower.wasTracked);
  see(excludedShowOf(kTalk));
  EXPECT_FALSE(follower.wasTracked);
  see(showOf(kTalk));
  see(noShow());
  EXPECT_FALSE(follower.wasTracked);
}

}  // namespace
}  // namespace mrl
