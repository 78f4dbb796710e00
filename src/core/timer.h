// The clock of the presentation: how much time has been used, and whether it runs. Nothing here
// stores time left; it is always derived from elapsed time, so a changed duration counts at once.
#pragma once

#include <cstdint>
#include <string>

#include "settings/settings.h"

namespace mrl {

enum class TimerPhase : uint32_t { Idle = 0, Running = 1, Paused = 2 };

struct TimerState {
  TimerPhase phase = TimerPhase::Idle;
  int64_t elapsedMs = 0;     // up to the last pause; without the stretch since startedAtMs
  uint64_t startedAtMs = 0;  // meaningful only while Running
  bool expiredFired = false;
  uint32_t promptsFired = 0;  // bit 0: prompt1, bit 1: prompt2

  bool operator==(const TimerState&) const = default;
};

/// A clock that went backwards counts as no time at all.
int64_t elapsedAt(const TimerState& timer, uint64_t nowMs);
/// Starts an idle timer and resumes a paused one; a running one is left alone.
void startTimer(TimerState& timer, uint64_t nowMs);
void pauseTimer(TimerState& timer, uint64_t nowMs);
void resetTimer(TimerState& timer);
/// From zero again, alerts re-armed; the phase stays what it is.
void restartElapsed(TimerState& timer, uint64_t nowMs);

/// Whether the time is up now. True once a run: it sets `expiredFired`.
bool expiryDue(TimerState& timer, uint64_t nowMs, const Settings& settings);
/// Whether stage alert `index` (0 or 1) is due now. True once a run: it sets the stage's bit.
bool stageDue(TimerState& timer, int index, uint64_t nowMs, const Settings& settings);
/// Whether one of the hide rules wants the clock out of sight.
bool overlayHidden(const Settings& settings, const TimerState& timer, uint64_t nowMs, bool excluded,
                   bool presentationsOpen);

/// What the clock shows.
std::u16string timeText(const TimerState& timer, uint64_t nowMs, const Settings& settings);

}  // namespace mrl
