// Sample timers for tests.
#pragma once

#include "core/timer.h"

namespace mrl {

inline constexpr uint64_t kStartMs = 1'000'000;

inline TimerState runningSince(uint64_t startedAtMs) {
  TimerState timer;
  startTimer(timer, startedAtMs);
  return timer;
}

inline TimerState pausedAt(int64_t elapsedMs) {
  return {.phase = TimerPhase::Paused, .elapsedMs = elapsedMs};
}

}  // namespace mrl
