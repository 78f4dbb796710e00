#include "core/timer.h"

#include <gtest/gtest.h>

#include <limits>

namespace mrl {
namespace {

constexpr uint64_t kStartMs = 1'000'000;
constexpr uint64_t kLatestMs = std::numeric_limits<uint64_t>::max();
constexpr int64_t kLongestMs = std::numeric_limits<int64_t>::max();

TimerState runningSince(uint64_t startedAtMs) {
  TimerState timer;
  startTimer(timer, startedAtMs);
  return timer;
}

TimerState pausedAt(int64_t elapsedMs) {
  return {.phase = TimerPhase::Paused, .elapsedMs = elapsedMs};
}

/// Whatever could survive a reset does stand in it.
TimerState wornOut(TimerPhase phase) {
  return {.phase = phase,
          .elapsedMs = 5'000,
          .startedAtMs = kStartMs,
          .expiredFired = true,
          .promptsFired = 3};
}

constexpr TimerPhase kAllPhases[] = {TimerPhase::Idle, TimerPhase::Running, TimerPhase::Paused};

TEST(TimerTest, ANewTimerIsIdleAndAllZero) {
  const TimerState timer;
  EXPECT_EQ(timer.phase, TimerPhase::Idle);
  EXPECT_EQ(timer.elapsedMs, 0);
  EXPECT_EQ(timer.startedAtMs, 0u);
  EXPECT_FALSE(timer.expiredFired);
  EXPECT_EQ(timer.promptsFired, 0u);
}

TEST(TimerTest, ThePhasesKeepTheirNumbers) {
  EXPECT_EQ(static_cast<uint32_t>(TimerPhase::Idle), 0u);
  EXPECT_EQ(static_cast<uint32_t>(TimerPhase::Running), 1u);
  EXPECT_EQ(static_cast<uint32_t>(TimerPhase::Paused), 2u);
}

TEST(TimerTest, ARunningTimerAddsTheStretchToWhatItHad) {
  TimerState timer = pausedAt(4'000);
  startTimer(timer, kStartMs);
  EXPECT_EQ(elapsedAt(timer, kStartMs + 1'500), 5'500);
}

TEST(TimerTest, AnIdleTimerStandsStill) {
  const TimerState timer{.startedAtMs = kStartMs};
  EXPECT_EQ(elapsedAt(timer, kStartMs + 9'000), 0);
}

TEST(TimerTest, APausedTimerStandsStill) {
  TimerState timer = runningSince(kStartMs);
  pauseTimer(timer, kStartMs + 2'000);
  EXPECT_EQ(elapsedAt(timer, kStartMs + 90'000), 2'000);
}

TEST(TimerTest, StartingAnIdleTimerRunsItFromNow) {
  TimerState timer;
  startTimer(timer, kStartMs);
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running, .startedAtMs = kStartMs}));
}

TEST(TimerTest, AResumedTimerKeepsItsElapsedTimeAndItsFlags) {
  TimerState timer = wornOut(TimerPhase::Paused);
  startTimer(timer, kStartMs + 60'000);
  EXPECT_EQ(timer, (TimerState{.phase = TimerPhase::Running,
                               .elapsedMs = 5'000,
                               .startedAtMs = kStartMs + 60'000,
                               .expiredFired = true,
                               .promptsFired = 3}));
}

TEST(TimerTest, StartingARunningTimerDoesNothing) {
  TimerState timer = wornOut(TimerPhase::Running);
  startTimer(timer, kStartMs + 1'000);
  EXPECT_EQ(timer, wornOut(TimerPhase::Running));
}

TEST(TimerTest, PausingAddsTheStretchAndKeepsTheFlags) {
  TimerState timer = wornOut(TimerPhase::Running);
  pauseTimer(timer, kStartMs + 1'234);
  EXPECT_EQ(timer.phase, TimerPhase::Paused);
  EXPECT_EQ(timer.elapsedMs, 6'234);
  EXPECT_TRUE(timer.expiredFired);
  EXPECT_EQ(timer.promptsFired, 3u);
}

TEST(TimerTest, PausingATimerThatDoesNotRunDoesNothing) {
  for (const TimerPhase phase : {TimerPhase::Idle, TimerPhase::Paused}) {
    TimerState timer = wornOut(phase);
    pauseTimer(timer, kStartMs + 1'000);
    EXPECT_EQ(timer, wornOut(phase));
  }
}

TEST(TimerTest, SeveralStretchesAddUp) {
  TimerState timer;
  for (uint64_t stretch = 0; stretch < 3; ++stretch) {
    startTimer(timer, kStartMs + stretch * 10'000);
    pauseTimer(timer, kStartMs + stretch * 10'000 + 700);
  }
  EXPECT_EQ(timer.elapsedMs, 2'100);
}

TEST(TimerTest, AResetClearsEverythingFromAnyPhase) {
  for (const TimerPhase phase : kAllPhases) {
    TimerState timer = wornOut(phase);
    resetTimer(timer);
    EXPECT_EQ(timer, TimerState{});
  }
}

TEST(TimerTest, ARestartClearsTimeAndFlagsButKeepsThePhase) {
  for (const TimerPhase phase : kAllPhases) {
    TimerState timer = wornOut(phase);
    restartElapsed(timer, kStartMs + 1'000);
    EXPECT_EQ(timer, (TimerState{.phase = phase, .startedAtMs = kStartMs + 1'000}));
  }
}

// Clocks that misbehave.

TEST(TimerClockTest, AClockThatRunsBackwardsCountsAsNoTime) {
  TimerState timer = pausedAt(3'000);
  startTimer(timer, kStartMs);
  EXPECT_EQ(elapsedAt(timer, kStartMs - 1), 3'000);
  EXPECT_EQ(elapsedAt(timer, 0), 3'000);
}

TEST(TimerClockTest, PausingBeforeTheStartAddsNothing) {
  TimerState timer = pausedAt(3'000);
  startTimer(timer, kStartMs);
  pauseTimer(timer, kStartMs - 500);
  EXPECT_EQ(timer.elapsedMs, 3'000);
}

TEST(TimerClockTest, AJumpOfHoursCountsInFull) {
  constexpr int64_t kTenHoursMs = 36'000'000;
  EXPECT_EQ(elapsedAt(runningSince(kStartMs), kStartMs + kTenHoursMs), kTenHoursMs);
}

TEST(TimerClockTest, TheDifferenceIsSigned) {
  EXPECT_EQ(elapsedAt(runningSince(kLatestMs - 10), kLatestMs), 10);
  EXPECT_EQ(elapsedAt(runningSince(kLatestMs), 5), 6);  // past the wrap of the reading
  EXPECT_EQ(elapsedAt(runningSince(5), kLatestMs), 0);  // six before the start
  EXPECT_EQ(elapsedAt(runningSince(0), uint64_t{1} << 63), 0);
}

TEST(TimerClockTest, TimeThatNoTypeHoldsStopsAtTheGreatest) {
  TimerState timer = runningSince(0);
  pauseTimer(timer, kLongestMs);
  startTimer(timer, 0);
  EXPECT_EQ(elapsedAt(timer, kLongestMs), kLongestMs);
  pauseTimer(timer, kLongestMs);
  EXPECT_EQ(timer.elapsedMs, kLongestMs);
}

// Expiry.

Settings countdownOf(uint32_t seconds) {
  Settings settings;
  settings.duration = seconds;
  settings.prompt1.enabled = false;
  settings.prompt2.enabled = false;
  return settings;
}

TEST(ExpiryTest, IsDueOnTheMillisecondThatTheTimeIsUp) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 9'999, countdownOf(10)));
  EXPECT_FALSE(timer.expiredFired);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 10'000, countdownOf(10)));
  EXPECT_TRUE(timer.expiredFired);
}

TEST(ExpiryTest, FiresOnceARun) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 10'000, countdownOf(10)));
  EXPECT_FALSE(expiryDue(timer, kStartMs + 10'100, countdownOf(10)));
}

TEST(ExpiryTest, TheTimerRunsOnIntoOvertime) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(expiryDue(timer, kStartMs + 10'000, countdownOf(10)));
  EXPECT_EQ(timer.phase, TimerPhase::Running);
  EXPECT_EQ(elapsedAt(timer, kStartMs + 12'000), 12'000);
}

TEST(ExpiryTest, IsStillDueWhenTheTickCameLate) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 36'000'000, countdownOf(10)));
}

TEST(ExpiryTest, NeverHappensWhenCountingUp) {
  Settings settings = countdownOf(10);
  settings.down = false;
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 60'000, settings));
  EXPECT_FALSE(timer.expiredFired);
}

TEST(ExpiryTest, NeverHappensWithADurationOfZero) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 60'000, countdownOf(0)));
}

TEST(ExpiryTest, ADurationOfOneSecondIsEnough) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 999, countdownOf(1)));
  EXPECT_TRUE(expiryDue(timer, kStartMs + 1'000, countdownOf(1)));
}

TEST(ExpiryTest, NeverHappensWhilePausedOrIdle) {
  for (const TimerPhase phase : {TimerPhase::Paused, TimerPhase::Idle}) {
    TimerState timer{.phase = phase, .elapsedMs = 60'000};
    EXPECT_FALSE(expiryDue(timer, kStartMs, countdownOf(10)));
    EXPECT_FALSE(timer.expiredFired);
  }
}

TEST(ExpiryTest, AShorterDurationCountsAtOnceOnARunningTimer) {
  TimerState timer = runningSince(kStartMs);
  EXPECT_FALSE(expiryDue(timer, kStartMs + 5'000, countdownOf(10)));
  EXPECT_TRUE(expiryDue(timer, kStartMs + 5'000, countdownOf(5)));
}

TEST(ExpiryTest, ALongerDurationByHandDoesNotRearmIt) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(expiryDue(timer, kStartMs + 10'000, countdownOf(10)));
  EXPECT_FALSE(expiryDue(timer, kStartMs + 20'000, countdownOf(20)));
}

TEST(ExpiryTest, ARestartRearmsIt) {
  TimerState timer = runningSince(kStartMs);
  ASSERT_TRUE(expiryDue(timer, kStartMs + 10'000, countdownOf(10)));
  restartElapsed(timer, kStartMs + 10'000);
  EXPECT_TRUE(expiryDue(timer, kStartMs + 20'000, countdownOf(10)));
}

TEST(ExpiryTest, TheLongestDurationDoesNotOverflow) {
  constexpr uint32_t kLongest = std::numeric_limits<uint32_t>::max();
  TimerState timer = runningSince(0);
  EXPECT_FALSE(expiryDue(timer, uint64_t{kLongest} * 1000 - 1, countdownOf(kLongest)));
  EXPECT_TRUE(expiryDue(timer, uint64_t{kLongest} * 1000, countdownOf(kLongest)));
}

// Stage alerts.

Settings stagesAt(uint32_t duration, uint32_t advance1, uint32_t advance2) {
  Settings settings = countdownOf(duration);
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
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 60'000, stagesAt(60, 61, 10)));
  EXPECT_FALSE(stageDue(timer, 0, kStartMs + 60'000, stagesAt(60, kLongest, 10)));
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
