#include "core/timer.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/timer_samples.h"

namespace mrl {
namespace {

constexpr uint64_t kLatestMs = std::numeric_limits<uint64_t>::max();
constexpr int64_t kLongestMs = std::numeric_limits<int64_t>::max();

/// Every field that a reset might miss is set.
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

// Time sources that misbehave.

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
  EXPECT_EQ(elapsedAt(runningSince(kLatestMs), 5), 6);  // across the wrap of the reading
  EXPECT_EQ(elapsedAt(runningSince(5), kLatestMs), 0);  // six ms before the start
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

}  // namespace
}  // namespace mrl
