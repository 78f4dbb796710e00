// Automatic mode: starts, pauses, restarts and resets the timer as shows come and go. UI thread.
// Nothing here fails.
#pragma once

#include <cstdint>
#include <string>

#include "core/timer.h"
#include "presentation/show_status.h"
#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// The state kept from one poll to the next.
struct ShowFollower {
  bool wasTracked = false;      // the last update saw a show, not excluded; false in a switch
  bool lastAutoMode = false;    // at the last update
  bool primed = false;          // at least one update has happened
  bool followedShow = false;    // automatic mode followed a show; its reset is still to come
  bool switchPending = false;   // a switch to another deck after expiry is in progress
  bool switchSeen = false;      // and the target deck's show has been seen
  std::u16string lastSlideKey;  // empty unless a tracked show ran with `perSlide` on
  std::u16string lastPath;      // normalised, of the document last followed
  std::u16string lastTitle;     // of its show window; may be empty
  uint64_t resetAtMs = 0;       // when a delayed reset is due; 0: none pending

  bool operator==(const ShowFollower&) const = default;
};

/// One poll, reduced to what the follower needs.
struct ShowObservation {
  bool showing = false;
  bool excluded = false;
  std::u16string slideKey;
  DocumentState documentState = DocumentState::Unknown;
  bool isSwitchTarget = false;
  std::u16string normalizedPath;
  std::u16string title;
};

/// Reduces a poll's status. `switchTarget` is the deck that plays after expiry, or empty; its path
/// is resolved through `files`.
ShowObservation observeShow(Files& files, const ShowStatus& status, bool excluded,
                            const std::u16string& switchTarget);

/// Updates follower and timer with one observation: after each poll, and at once after a mode
/// change. In manual mode the timer is left alone, except that closing the deck of a switch resets
/// it.
void followShow(ShowFollower& follower, TimerState& timer, const Settings& settings,
                const ShowObservation& seen, uint64_t nowMs);

/// Performs a delayed reset that is due. Drops one that no longer applies (manual mode, or a show
/// is tracked again).
void applyPendingReset(ShowFollower& follower, TimerState& timer, const Settings& settings,
                       uint64_t nowMs);

}  // namespace mrl
