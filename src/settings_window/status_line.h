// What the settings window's frame tells of the timer. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// The line and the button beside it. Without a window it does nothing.
void refreshStatusLine(App& app);

}  // namespace mrl
