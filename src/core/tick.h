// The tick: advances the whole program ten times a second.
#pragma once

#include "core/app.h"

namespace mrl {

/// Applies due edits of the settings window, polls the presentation layer at most every 1500 ms and
/// follows what it reports, fires what is due, applies the hide rules, and repaints the clock only
/// if its text or its blink changed. UI thread.
void tick(App& app);

}  // namespace mrl
