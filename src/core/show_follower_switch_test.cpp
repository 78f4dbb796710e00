// A switch to another deck after expiry: what is followed while it lasts.
#include "core/show_follower_fixture.h"

namespace mrl {
namespace {

class SwitchTest : public FollowerFixture {
 protected:
  /// The talk has run for a minute; then the time was up and the switch began.
  void beginSwitch() {
    runTalkForAMinute();
    pauseTimer(timer, nowMs);
    follower.switchPending = true;
    atExpiry = timer;
  }
  void seeTarget() { see(targetShowOf(kOther)); }

  TimerState atExpiry;
};

// Seeing the target.

TEST_F(SwitchTest, TheTargetOnScreenIsNoted) {
  beginSwitch();
  seeTarget();
  EXPECT_TRUE(follower.switchSeen);
  EXPECT_TRUE(follower.switchPending);
}

TEST_F(SwitchTest, ATargetThatDoesNotShowIsNotNoted) {
  beginSwitch();
  ShowObservation seen = targetShowOf(kOther);
  seen.showing = false;
  see(seen);
  EXPECT_FALSE(follower.switchSeen);
}

TEST_F(SwitchTest, WithoutASwitchATargetIsAShowLikeAnyOther) {
  seeTarget();
  EXPECT_FALSE(follower.switchSeen);
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(SwitchTest, TheTargetIsNotTimed) {
  beginSwitch();
  seeTarget();
  waitSeconds(60);
  seeTarget();
  EXPECT_EQ(timer, atExpiry);
  EXPECT_EQ(follower.lastPath, kTalk);
}

TEST_F(SwitchTest, AnExcludedTargetIsNotedAsWell) {
  beginSwitch();
  ShowObservation seen = targetShowOf(kOther);
  seen.excluded = true;
  see(seen);
  EXPECT_TRUE(follower.switchSeen);
  EXPECT_EQ(timer, atExpiry);
}

TEST_F(SwitchTest, UnderTheTargetATimerStartedByHandRunsOn) {
  beginSwitch();
  seeTarget();
  startTimer(timer, nowMs);
  waitSeconds(10);
  seeTarget();
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 70'000);
}

// Before the target has appeared.

TEST_F(SwitchTest, UntilTheTargetHasComeNothingElseCounts) {
  beginSwitch();
  for (const ShowObservation& seen : {showOf(kTalk), showOf(u"third.pptx"), noShow(),
                                      noShow(DocumentState::Closed), excludedShowOf(kTalk)}) {
    see(seen);
    EXPECT_EQ(timer, atExpiry);
    EXPECT_TRUE(follower.switchPending);
    EXPECT_FALSE(follower.switchSeen);
    EXPECT_EQ(follower.resetAtMs, 0u);
  }
}

TEST_F(SwitchTest, UntilTheTargetHasComeATimerStartedByHandRunsOn) {
  beginSwitch();
  startTimer(timer, nowMs);
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(SwitchTest, WhileItLastsTheBookkeepingGoesOn) {
  settings.perSlide = true;
  for (const bool autoMode : {false, true}) {
    settings.autoMode = autoMode;
    follower = {.wasTracked = true,
                .lastAutoMode = !autoMode,
                .switchPending = true,
                .lastSlideKey = u"talk#1"};
    seeTarget();
    EXPECT_TRUE(follower.primed);
    EXPECT_EQ(follower.lastAutoMode, autoMode);
    EXPECT_FALSE(follower.wasTracked);
    EXPECT_TRUE(follower.lastSlideKey.empty());
  }
}

TEST_F(SwitchTest, WhileItLastsAChangeOfModeForgetsNoShow) {
  beginSwitch();
  settings.autoMode = false;
  seeTarget();
  settings.autoMode = true;
  seeTarget();
  EXPECT_TRUE(follower.followedShow);
}

// A foreign show after the target.

TEST_F(SwitchTest, AForeignShowAfterTheTargetEndsTheSwitchAndIsFollowed) {
  beginSwitch();
  seeTarget();
  see(showOf(u"C:\\Talks\\third.pptx"));
  EXPECT_FALSE(follower.switchPending);
  EXPECT_FALSE(follower.switchSeen);
  EXPECT_TRUE(follower.wasTracked);
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
  EXPECT_EQ(follower.lastPath, u"C:\\Talks\\third.pptx");
}

TEST_F(SwitchTest, TheFirstTalkThatComesBackAfterTheTargetGoesOn) {
  settings.perSlide = true;
  beginSwitch();
  seeTarget();
  waitSeconds(10);
  see(showOf(kTalk, u'9'));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(SwitchTest, AForeignShowCountsAsNewlyTrackedAndItsSlideAsTheFirst) {
  settings.perSlide = true;
  timer = {.phase = TimerPhase::Paused, .elapsedMs = 5'000};
  follower = {.wasTracked = true,
              .lastAutoMode = true,
              .primed = true,
              .switchPending = true,
              .switchSeen = true,
              .lastSlideKey = u"talk#1"};
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 5'000);
}

TEST_F(SwitchTest, AnExcludedForeignShowEndsTheSwitchAndResetsNothing) {
  timer = {.phase = TimerPhase::Running, .elapsedMs = 5'000, .startedAtMs = nowMs};
  follower = {.wasTracked = true,
              .lastAutoMode = true,
              .primed = true,
              .followedShow = true,
              .switchPending = true,
              .switchSeen = true};
  see(excludedShowOf(kTalk));
  EXPECT_FALSE(follower.switchPending);
  EXPECT_FALSE(follower.switchSeen);
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 5'000);
}

TEST_F(SwitchTest, InManualModeAForeignShowEndsTheSwitchAndStartsNothing) {
  settings.autoMode = false;
  beginSwitch();
  seeTarget();
  see(showOf(kTalk));
  EXPECT_FALSE(follower.switchPending);
  EXPECT_EQ(timer, atExpiry);
}

// The end of the target.

TEST_F(SwitchTest, TheEndOfTheTargetPausesARunningTimer) {
  beginSwitch();
  seeTarget();
  startTimer(timer, nowMs);
  waitSeconds(10);
  see(noShow());
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 70'000);
}

TEST_F(SwitchTest, InManualModeTheEndOfTheTargetPausesNothing) {
  settings.autoMode = false;
  beginSwitch();
  seeTarget();
  startTimer(timer, nowMs);
  see(noShow());
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(SwitchTest, TheSwitchLastsWhileTheTargetsDocumentIsNotClosed) {
  beginSwitch();
  seeTarget();
  for (const DocumentState state : {DocumentState::Open, DocumentState::Unknown}) {
    see(noShow(state));
    EXPECT_EQ(timer, atExpiry);
    EXPECT_TRUE(follower.switchPending);
    EXPECT_TRUE(follower.switchSeen);
    EXPECT_TRUE(follower.followedShow);
  }
}

TEST_F(SwitchTest, ATargetShownAgainIsStillTheTarget) {
  beginSwitch();
  seeTarget();
  see(noShow());
  seeTarget();
  EXPECT_TRUE(follower.switchPending);
  EXPECT_EQ(timer, atExpiry);
}

TEST_F(SwitchTest, TheClosingOfTheTargetResetsAtOnceWithoutADelay) {
  beginSwitch();
  seeTarget();
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer, TimerState{});
  EXPECT_FALSE(follower.switchPending);
  EXPECT_FALSE(follower.switchSeen);
  EXPECT_FALSE(follower.followedShow);
  EXPECT_EQ(follower.resetAtMs, 0u);
}

TEST_F(SwitchTest, TheClosingOfTheTargetResetsAfterTheDelay) {
  settings.resetDelay = 30;
  beginSwitch();
  seeTarget();
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer, atExpiry);
  EXPECT_FALSE(follower.switchPending);
  EXPECT_FALSE(follower.switchSeen);
  EXPECT_FALSE(follower.followedShow);
  EXPECT_EQ(follower.resetAtMs, nowMs + 30'000);
}

TEST_F(SwitchTest, TheDelayAfterTheTargetEndsInAReset) {
  settings.resetDelay = 30;
  beginSwitch();
  seeTarget();
  see(noShow(DocumentState::Closed));
  waitSeconds(29);
  tick();
  EXPECT_EQ(timer, atExpiry);
  waitSeconds(1);
  tick();
  EXPECT_EQ(timer, TimerState{});
}

TEST_F(SwitchTest, TheFirstTalkWithinTheDelayAfterTheTargetGoesOn) {
  settings.resetDelay = 30;
  beginSwitch();
  seeTarget();
  see(noShow(DocumentState::Closed));
  waitSeconds(10);
  see(showOf(kTalk));
  waitSeconds(30);
  tick();
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 90'000);
}

TEST_F(SwitchTest, TheClosingOfTheTargetIsHeededInManualModeToo) {
  settings.autoMode = false;
  beginSwitch();
  seeTarget();
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(timer, TimerState{});
  EXPECT_FALSE(follower.switchPending);
}

TEST_F(SwitchTest, InManualModeTheDelayAfterTheTargetIsDropped) {
  settings.autoMode = false;
  settings.resetDelay = 30;
  beginSwitch();
  startTimer(timer, nowMs);
  seeTarget();
  see(noShow(DocumentState::Closed));
  tick();
  EXPECT_EQ(follower.resetAtMs, 0u);
  EXPECT_EQ(timer.phase, TimerPhase::Running);
}

TEST_F(SwitchTest, AfterTheSwitchTheNextShowIsFollowedAsUsual) {
  beginSwitch();
  seeTarget();
  see(noShow(DocumentState::Closed));
  see(showOf(kTalk));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

}  // namespace
}  // namespace mrl
