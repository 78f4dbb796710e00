// What happens when the time is up or a stage is due, and the timed work that follows. UI thread.
#pragma once

#include <cstdint>

#include "core/app.h"

namespace mrl {

/// Fires stage `index` (0 or 1). A stage only blinks and plays a sound.
void fireStage(App& app, int index);

/// Runs the expiry actions in their fixed order. A failed action is reported and stops no other.
void fireExpiry(App& app, uint64_t nowMs);

/// Starts a blink of `seconds`, or of no fixed length if that is 0. Restarts one that is running.
void startBlink(App& app, uint32_t seconds);

/// Runs timed work that is due: the deck switch, raising started shows, the end of sound and blink.
void runTimedWork(App& app, uint64_t nowMs);

/// Stops blink and sound, and a deck switch at any step. Leaves the timer, the black screen and the
/// raising of a show that a remote command started as they are.
void clearRuntime(App& app);

/// Exits the running show; a failure is reported.
void exitShow(App& app);

}  // namespace mrl
