// When the time is up and when the stages before it are due.
#include <gtest/gtest.h>

#include <limits>

#include "core/timer_samples.h"

namespace mrl {
namespace {

// Expiry.

Settings silentCountdown(uint32_t seconds) {
  Settings settings;
  settings.duration = seconds;
  settings.prompt1.enabled = false;
  settings.prompt2.enabled = false;
  return settings;
}

TEST(ExpiryTest, IsDueOnTheMillisecondThatTheTimeIsUp) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 9'999, silentCountdown(10)));
  EXPECT_FALSE(timer.expiredFired);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 10'000, silentCountdown(10)));
  EXPECT_TRUE(timer.expiredFired);
}

TEST(ExpiryTest, FiresOnceARun) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 10'000, silentCountdown(10)));
  EXPECT_FALSE(expiryDue(timer, kStartMs + 10'100, silentCountdown(10)));
}

TEST(ExpiryTest, TheTimerRunsOnIntoOvertime) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(expiryDue(timer, kStartMs + 10'000, silentCountdown(10)));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedAt(timer, kStartMs + 12'000), 12'000);
}

TEST(ExpiryTest, IsStillDueWhenTheTickCameLate) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 36'000'000, silentCountdown(10)));
}

TEST(ExpiryTest, NeverHappensWhenCountingUp) {
  Settings settings = silentCountdown(10);
  settings.down = false;
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 60'000, settings));
  EXPECT_FALSE(timer.expiredFired);
}

TEST(ExpiryTest, NeverHappensWithADurationOfZero) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 60'000, silentCountdown(0)));
}

TEST(ExpiryTest, ADurationOfOneSecondIsEnough) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 999, silentCountdown(1)));
  EXPECT_TRUE(expiryDue(timer, kStartMs + 1'000, silentCountdown(1)));
}

TEST(ExpiryTest, NeverHappensWhilePausedOrIdle) {
  for (const TimerPhase phase : {TimerPhase::Paused, TimerPhase::Idle}) {
    TimerState timer{.phase = phase, .elapsedMs = 60'000};
    EXPECT_FALSE(expiryDue(timer, kStartMs, silentCountdown(10)));
    EXPECT_FALSE(timer.expiredFired);
  }
}

TEST(ExpiryTest, AShorterDurationCountsAtOnceOnARunningTimer) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 5'000, silentCountdown(10)));
  EXPECT_TRUE(expiryDue(timer, kStartMs + 5'000, silentCountdown(5)));
}

TEST(ExpiryTest, ALongerDurationByHandDoesNotRearmIt) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(expiryDue(timer, kStartMs + 10'000, silentCountdown(10)));
  EXPECT_FALSE(expiryDue(timer, kStartMs + 20'000, silentCountdown(20)));
}

TEST(ExpiryTest, TurningToCountingDownPastTheEndFiresAtOnce) {
  Settings settings = silentCountdown(10);
  settings.down = false;
  TimerState timer = runningSince(kStartMs);
  ASSERT_FALSE(expiryDue(timer, kStartMs + 20'000, settings));
  settings.down = true;
  EXPECT_TRUE(expiryDue(timer, kStartMs + 20'000, settings));
}

TEST(ExpiryTest, ATimerPausedPastTheEndFiresWhenItIsResumed) {
  TimerState timer = pausedAt(20'000);
  ASSERT_FALSE(expiryDue(timer, kStartMs, silentCountdown(10)));
  startTimer(timer, kStartMs);
  EXPECT_TRUE(expiryDue(timer, kStartMs, silentCountdown(10)));
}

TEST(ExpiryTest, AResumedTimerThatHasFiredStaysSilent) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(expiryDue(timer, kStartMs + 10'000, silentCountdown(10)));
  pauseTimer(timer, kStartMs + 11'000);
  startTimer(timer, kStartMs + 12'000);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 13'000, silentCountdown(10)));
}

TEST(ExpiryTest, ARestartRearmsIt) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(expiryDue(timer, kStartMs + 10'000, silentCountdown(10)));
  restartElapsed(timer, kStartMs + 10'000);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 20'000, silentCountdown(10)));
}

TEST(ExpiryTest, TheLongestDurationDoesNotOverflow) {
  constexpr uint32_t kLongest = std::numeric_limits<uint32_t>::max();
  TimerState timer = runningSince(0);
  EXPECT_FALSE(expiryDue(timer, uint64_t{kLongest} * 1000 - 1, silentCountdown(kLongest)));
  EXPECT_TRUE(expiryDue(timer, uint64_t{kLongest} * 1000, silentCountdown(kLongest)));
}

// Stage alerts.

Settings stagesAt(uint32_t duration, uint32_t advance1, uint32_t advance2) {
  Settings settings = silentCountdown(duration);
  settings.prompt1 = {.enabled = true, .advance = advance1};
  settings.prompt2 = {.enabled = true, .advance = advance2};
  return settings;
}

TEST(StageTest, EachIsDueItsAdvanceBeforeTheEnd) {
  const Settings settings = stagesAt(60, 30, 10);
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 29'999, settings));
  EXPECT_TRUE(stageDue(timer, 0, kStartMs + 30'000, settings));
  EXPECT_FALSE(stageDue(timer, 1, kStartMs + 49'999, settings));
  EXPECT_TRUE(stageDue(timer, 1, kStartMs + 50'000, settings));
}

TEST(StageTest, EachSetsItsOwnBit) {
  const Settings settings = stagesAt(60, 30, 10);
  TimerState first = runningSince(kStartMs);
  ASSERT_TRUE(stageDue(first, 0, kStartMs + 60'000, settings));
  EXPECT_EQ(first.promptsFired, 1u);
  TimerState second = runningSince(kStartMs);
  ASSERT_TRUE(stageDue(second, 1, kStartMs + 60'000, settings));
  EXPECT_EQ(second.promptsFired, 2u);
  ASSERT_TRUE(stageDue(second, 0, kStartMs + 60'000, settings));
  EXPECT_EQ(second.promptsFired, 3u);
}

TEST(StageTest, EachFiresOnceARun) {
  const Settings settings = stagesAt(60, 30, 10);
  for (const int index : {0, 1}) {
    TimerState timer = runningSince(kStartMs);
    EXPECT_TRUE(stageDue(timer, index, kStartMs + 60'000, settings));
    EXPECT_FALSE(stageDue(timer, index, kStartMs + 60'100, settings));
  }
}

TEST(StageTest, NoOtherIndexIsEverDue) {
  for (const int index : {-1, 2, 31, 32, std::numeric_limits<int>::min()}) {
    TimerState timer = runningSince(kStartMs);
    EXPECT_FALSE(stageDue(timer, index, kStartMs + 60'000, stagesAt(60, 30, 10)));
    EXPECT_EQ(timer.promptsFired, 0u);
  }
}

TEST(StageTest, AStageThatIsOffIsNeverDue) {
  Settings settings = stagesAt(60, 30, 10);
  settings.prompt1.enabled = false;
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 60'000, settings));
  EXPECT_TRUE(stageDue(timer, 1, kStartMs + 60'000, settings));
}

TEST(StageTest, NeverHappensWhenCountingUp) {
  Settings settings = stagesAt(60, 30, 10);
  settings.down = false;
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 60'000, settings));
  EXPECT_FALSE(stageDue(timer, 1, kStartMs + 60'000, settings));
}

TEST(StageTest, NeverHappensWithADurationOfZero) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 60'000, stagesAt(0, 0, 0)));
  EXPECT_FALSE(stageDue(timer, 1, kStartMs + 60'000, stagesAt(0, 0, 0)));
}

TEST(StageTest, NeverHappensWhilePausedOrIdle) {
  for (const TimerPhase phase : {TimerPhase::Paused, TimerPhase::Idle}) {
    TimerState timer{.phase = phase, .elapsedMs = 60'000};
    EXPECT_FALSE(stageDue(timer, 0, kStartMs, stagesAt(60, 30, 10)));
    EXPECT_EQ(timer.promptsFired, 0u);
  }
}

TEST(StageTest, AnAdvanceOfTheWholeDurationNeverFires) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 60'000, stagesAt(60, 60, 10)));
}

TEST(StageTest, AnAdvanceAboveTheDurationNeverFires) {
  constexpr uint32_t kLongest = std::numeric_limits<uint32_t>::max();
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 36'000'000, stagesAt(60, 61, 10)));
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 36'000'000, stagesAt(60, kLongest, 10)));
}

TEST(StageTest, AnAdvanceOneBelowTheDurationFiresAfterOneSecond) {
  const Settings settings = stagesAt(60, 59, 10);
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 999, settings));
  EXPECT_TRUE(stageDue(timer, 0, kStartMs + 1'000, settings));
}

TEST(StageTest, AnAdvanceOfZeroFiresWithTheExpiry) {
  const Settings settings = stagesAt(60, 0, 10);
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 59'999, settings));
  EXPECT_TRUE(stageDue(timer, 0, kStartMs + 60'000, settings));
}

TEST(StageTest, AShorterDurationCountsAtOnceOnARunningTimer) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 20'000, stagesAt(60, 30, 10)));
  EXPECT_TRUE(stageDue(timer, 0, kStartMs + 20'000, stagesAt(50, 30, 10)));
}

TEST(StageTest, ALongerDurationByHandDoesNotRearmIt) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(stageDue(timer, 0, kStartMs + 30'000, stagesAt(60, 30, 10)));
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 90'000, stagesAt(120, 30, 10)));
}

TEST(StageTest, ARestartRearmsBoth) {
  const Settings settings = stagesAt(60, 30, 10);
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(stageDue(timer, 0, kStartMs + 60'000, settings));
  ASSERT_TRUE(stageDue(timer, 1, kStartMs + 60'000, settings));
  restartElapsed(timer, kStartMs + 60'000);
  EXPECT_TRUE(stageDue(timer, 0, kStartMs + 120'000, settings));
  EXPECT_TRUE(stageDue(timer, 1, kStartMs + 120'000, settings));
}

TEST(StageTest, StagesAndExpiryDoNotSilenceEachOther) {
  const Settings settings = stagesAt(60, 30, 10);
  TimerState timer = runningSince(kStartMs);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 60'000, settings));
  EXPECT_TRUE(stageDue(timer, 1, kStartMs + 60'000, settings));
  EXPECT_TRUE(stageDue(timer, 0, kStartMs + 60'000, settings));
}

}  // namespace
}  // namespace mrl
