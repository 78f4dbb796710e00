// The switch to another deck after expiry: exits the show, waits a moment, opens and plays the
// deck, and keeps raising its show for a while. UI thread.
#pragma once

#include <cstdint>

#include "core/app.h"

namespace mrl {

/// Pauses the timer, exits the running show and schedules the opening of the deck.
void beginDeckSwitch(App& app, uint64_t nowMs);

/// Opens and plays the deck when it is due, then hides the clock until the deck's show has come and
/// gone. A deck that can't be played ends the switch and is reported.
void continueDeckSwitch(App& app, uint64_t nowMs);

/// Called with each poll: once the target's show was seen and is gone, the clock may come back.
void updateHold(App& app, bool isTargetShown);

/// Raises the shows that were just started, four times a second for two seconds: a show window may
/// appear late, and the system may refuse to change the foreground window.
void raiseStartedShows(App& app, uint64_t nowMs);

}  // namespace mrl
