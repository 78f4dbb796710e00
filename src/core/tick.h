// The tick: ten times a second it moves the whole program on.
#pragma once

#include "core/app.h"

namespace mrl {

/// Applies what is due in the settings window, polls the presentation layer at most once per 1500
/// ms, follows what it reports, fires what is due, and repaints the clock only if its text or its
/// blink changed. UI thread.
void tick(App& app);

}  // namespace mrl
