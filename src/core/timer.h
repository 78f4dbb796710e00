// The timer: how much time has been used, and whether it is running. Time left is never stored but
// derived from elapsed time, so that a changed duration takes effect at once.
#pragma once

#include <cstdint>
#include <string>

#include "settings/settings.h"

namespace mrl {

enum class TimerPhase : uint32_t { Idle = 0, Running = 1, Paused = 2 };

struct TimerState {
  TimerPhase phase = TimerPhase::Idle;
  int64_t elapsedMs = 0;     // up to the last pause; excludes the time since startedAtMs
  uint64_t startedAtMs = 0;  // valid only while Running
  bool expiredFired = false;
  uint32_t promptsFired = 0;  // bit 0: prompt1, bit 1: prompt2

  bool operator==(const TimerState&) const = default;
};

/// If the time source is behind startedAtMs, the time since then counts as 0.
int64_t elapsedAt(const TimerState& timer, uint64_t nowMs);
/// Starts an idle timer, resumes a paused one, leaves a running one alone.
void startTimer(TimerState& timer, uint64_t nowMs);
void pauseTimer(TimerState& timer, uint64_t nowMs);
void resetTimer(TimerState& timer);
/// Restarts from zero with all alerts re-armed; the phase is unchanged.
void restartElapsed(TimerState& timer, uint64_t nowMs);

/// Whether the time is up now. True once per run: it sets `expiredFired`.
bool expiryDue(TimerState& timer, uint64_t nowMs, const Settings& settings);
/// Whether stage `index` (0 or 1) is due now. True once per run: it sets the stage's bit.
bool stageDue(TimerState& timer, int index, uint64_t nowMs, const Settings& settings);
/// Whether a hide rule applies to the clock now.
bool overlayHidden(const Settings& settings, const TimerState& timer, uint64_t nowMs, bool excluded,
                   bool presentationsOpen);

/// The text of the clock.
std::u16string timeText(const TimerState& timer, uint64_t nowMs, const Settings& settings);

}  // namespace mrl
