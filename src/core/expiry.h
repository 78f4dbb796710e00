// What fires when the time is up or an alert is due, and the timed after-effects. UI thread.
#pragma once

#include <cstdint>

#include "core/app.h"

namespace mrl {

/// Fires stage alert `index` (0 or 1). A stage never does more than blink and sound.
void fireStage(App& app, int index);

/// Fires the expiry actions, in their fixed order. One that fails is told and stops no other.
void fireExpiry(App& app, uint64_t nowMs);

/// Lets the clock blink for `seconds`, or until something stops it when that is 0. A blink that
/// runs already starts anew.
void startBlink(App& app, uint32_t seconds);

/// Ends whatever has reached its time.
void runTimedWork(App& app, uint64_t nowMs);

/// Undoes everything that is in flight. The black screen and the timer are left as they are.
void clearRuntime(App& app);

/// Ends the running show; a failure is told.
void exitShow(App& app);

}  // namespace mrl
