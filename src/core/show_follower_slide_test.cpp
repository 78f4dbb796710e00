// The timer that restarts on each slide.
#include "core/show_follower_fixture.h"

namespace mrl {
namespace {

class PerSlideTest : public FollowerFixture {
 protected:
  PerSlideTest() { settings.perSlide = true; }
  /// Spends a minute on the first slide; both stages and the expiry have fired.
  void spendAMinuteOnSlideOne() {
    see(showOf(kTalk, u'1'));
    waitSeconds(60);
    fireAll();
  }
};

TEST_F(PerSlideTest, AChangeOfSlideRestartsTheClock) {
  spendAMinuteOnSlideOne();
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = nowMs}));
}

TEST_F(PerSlideTest, TheSameSlideRestartsNothing) {
  spendAMinuteOnSlideOne();
  see(showOf(kTalk, u'1'));
  EXPECT_EQ(elapsedMs(), 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(PerSlideTest, GoingBackToAnEarlierSlideIsAChangeLikeAnyOther) {
  spendAMinuteOnSlideOne();
  see(showOf(kTalk, u'2'));
  waitSeconds(5);
  see(showOf(kTalk, u'1'));
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(PerSlideTest, ATimerPausedByHandStaysPausedAtZero) {
  spendAMinuteOnSlideOne();
  pauseTimer(timer, nowMs);
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Paused, .startedAtMs = nowMs}));
}

TEST_F(PerSlideTest, ATimerResetByHandStaysIdle) {
  spendAMinuteOnSlideOne();
  resetTimer(timer);
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(timer.phase, TimerPhase::Idle);
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(PerSlideTest, AlertsAndExpiryFireAgainOnEachSlide) {
  settings.duration = 60;
  settings.prompt1 = {.enabled = true, .advance = 30};
  settings.prompt2 = {.enabled = true, .advance = 10};
  for (const char16_t slide : {u'1', u'2', u'3', u'2'}) {
    see(showOf(kTalk, slide));
    EXPECT_FALSE(stageDue(timer, 0, nowMs, settings));
    waitSeconds(60);
    EXPECT_TRUE(stageDue(timer, 0, nowMs, settings));
    EXPECT_TRUE(stageDue(timer, 1, nowMs, settings));
    EXPECT_TRUE(expiryDue(timer, nowMs, settings));
    EXPECT_FALSE(expiryDue(timer, nowMs, settings));
  }
}

TEST_F(PerSlideTest, TheFirstSlideAfterAStartRestartsNothing) {
  see(noShow());
  startTimer(timer, nowMs);
  waitSeconds(10);
  see(showOf(kTalk, u'7'));
  EXPECT_EQ(elapsedMs(), 10'000);
}

TEST_F(PerSlideTest, TheFirstSlideOfAShowThatCameBackRestartsNothing) {
  spendAMinuteOnSlideOne();
  see(noShow());
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(elapsedMs(), 60'000);
}

TEST_F(PerSlideTest, SlidesAreComparedUnitForUnit) {
  see(showOf(kTalk));
  waitSeconds(60);
  see(showOf(u"c:\\talks\\TALK.pptx"));  // the same document with another key
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(PerSlideTest, AShowWithoutASlideKeyRestartsNothingNorDoesTheNext) {
  spendAMinuteOnSlideOne();
  ShowObservation keyless = showOf(kTalk);
  keyless.slideKey.clear();
  see(keyless);
  EXPECT_EQ(elapsedMs(), 60'000);
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(elapsedMs(), 60'000);
}

TEST_F(PerSlideTest, SeveralChangesBetweenTwoPollsCountAsOne) {
  spendAMinuteOnSlideOne();
  see(showOf(kTalk, u'5'));
  EXPECT_EQ(elapsedMs(), 0);
  waitSeconds(1);
  see(showOf(kTalk, u'5'));
  EXPECT_EQ(elapsedMs(), 1'000);
}

TEST_F(PerSlideTest, ASlideLeftAndReturnedToBetweenTwoPollsCountsAsNoChange) {
  spendAMinuteOnSlideOne();
  waitSeconds(1);
  see(showOf(kTalk, u'1'));
  EXPECT_EQ(elapsedMs(), 61'000);
}

TEST_F(PerSlideTest, WithoutItNoSlideRestartsTheClock) {
  settings.perSlide = false;
  spendAMinuteOnSlideOne();
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(elapsedMs(), 60'000);
}

TEST_F(PerSlideTest, TurnedOffDuringAShowItHoldsNoMore) {
  spendAMinuteOnSlideOne();
  settings.perSlide = false;
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(elapsedMs(), 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(PerSlideTest, AShowWhoseSlidesAreUnknownNeverRestarts) {
  see(showTitled(kTalkTitle));
  waitSeconds(60);
  see(showTitled(kTalkTitle));
  EXPECT_EQ(elapsedMs(), 60'000);
}

TEST_F(PerSlideTest, TurnedOnDuringAShowItStartsWithTheNextChange) {
  settings.perSlide = false;
  spendAMinuteOnSlideOne();
  settings.perSlide = true;
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(elapsedMs(), 60'000);
  see(showOf(kTalk, u'3'));
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(PerSlideTest, InManualModeNoSlideRestartsTheClock) {
  settings.autoMode = false;
  startTimer(timer, nowMs);
  spendAMinuteOnSlideOne();
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(elapsedMs(), 60'000);
  EXPECT_TRUE(allFired());
}

TEST_F(PerSlideTest, ASlideLeftInManualModeCountsWhenAutomaticModeReturns) {
  settings.autoMode = false;
  startTimer(timer, nowMs);
  spendAMinuteOnSlideOne();
  settings.autoMode = true;
  see(showOf(kTalk, u'2'));
  EXPECT_EQ(elapsedMs(), 0);
}

TEST_F(PerSlideTest, WithoutAShowNoSlideRestartsTheClock) {
  spendAMinuteOnSlideOne();
  ShowObservation gone = noShow();
  gone.slideKey = u"elsewhere#9";
  see(gone);
  EXPECT_EQ(elapsedMs(), 60'000);
}

}  // namespace
}  // namespace mrl
