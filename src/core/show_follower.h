// Automatic mode: how the timer starts, pauses, restarts and resets by itself as shows come and go.
// UI thread. Nothing here fails.
#pragma once

#include <cstdint>
#include <string>

#include "core/timer.h"
#include "presentation/show_status.h"
#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// What is remembered from one poll to the next.
struct ShowFollower {
  bool wasTracked = false;      // at the last update a show ran and was not excluded
  bool lastAutoMode = false;    // at the last update
  bool primed = false;          // at least one update has happened
  bool followedShow = false;    // a tracked show was seen and its end has not yet led to a reset
  bool switchPending = false;   // a switch to another deck after expiry is under way
  bool switchSeen = false;      // and the target deck has been seen running
  std::u16string lastSlideKey;  // empty unless a tracked show ran with `perSlide` on
  std::u16string lastPath;      // normalised, of the document last followed
  std::u16string lastTitle;     // of its show window
  uint64_t resetAtMs = 0;       // when a delayed reset is due; 0: none pending

  bool operator==(const ShowFollower&) const = default;
};

/// One observation, as the follower takes it.
struct ShowObservation {
  bool showing = false;
  bool excluded = false;
  std::u16string slideKey;
  DocumentState documentState = DocumentState::Unknown;
  bool isSwitchTarget = false;
  std::u16string normalizedPath;
  std::u16string title;
};

/// What a poll's status means to the follower. `switchTarget` is the deck that plays after expiry,
/// or empty; the file system is asked for its path.
ShowObservation observe(Files& files, const ShowStatus& status, bool excluded,
                        const std::u16string& switchTarget);

/// Moves timer and memory on by one observation: after each poll, and at once after a mode change.
/// In manual mode only the memory moves, save for the end of a switch to another deck.
void followShow(ShowFollower& follower, TimerState& timer, const Settings& settings,
                const ShowObservation& seen, uint64_t nowMs);

/// Carries out a delayed reset that has come due. One that lost its reason (manual mode, or a show
/// that is tracked again) is dropped.
void applyPendingReset(ShowFollower& follower, TimerState& timer, const Settings& settings,
                       uint64_t nowMs);

}  // namespace mrl
