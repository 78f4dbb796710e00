// Shows the timer's state at the top of the settings window. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Updates the timer's line and the start and pause button beside it. Does nothing without a
/// window.
void refreshStatusLine(App& app);

}  // namespace mrl
