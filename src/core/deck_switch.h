// The switch to another deck when the time is up: leave the show, wait a moment, open and play the
// deck, and bring its show to the front until it is there. UI thread.
#pragma once

#include <cstdint>

#include "core/app.h"

namespace mrl {

/// Pauses the timer, ends the running show and sets the time at which the deck is opened.
void beginDeckSwitch(App& app, uint64_t nowMs);

/// Opens the deck when that is due. While its show is on, the clock is hidden. A deck that can't be
/// played ends the switch; the user is told.
void continueDeckSwitch(App& app, uint64_t nowMs);

/// Brings the shows that were just started to the front, four times a second for two seconds: a
/// show window comes up late, and the system may refuse a change of the foreground.
void raiseStartedShows(App& app, uint64_t nowMs);

}  // namespace mrl
