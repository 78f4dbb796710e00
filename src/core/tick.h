// The tick: ten times a second it moves the whole program on.
#pragma once

#include "core/app.h"

namespace mrl {

/// Applies what is due in the settings window, polls the presentation layer at most once per 1500
/// ms, follows what it reports, fires what is due, and repaints the clock only if its text or its
/// blink changed. UI thread.
void tick(App& app);

/// A status as the follower takes it: each new one, and the last one again when the mode changed.
ShowObservation observe(App& app, const ShowStatus& status, bool excluded);

/// Hides the clock where a rule wants it out of sight, and shows what no rule hides any more. What
/// the user hid stays hidden.
void applyHideRules(App& app);

/// Whether the clock is in the bright phase of a blink just now.
bool isBlinkOn(const App& app);

}  // namespace mrl
