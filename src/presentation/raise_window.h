// Brings another program's window in front of the audience.
#pragma once

#include "presentation/window_system.h"

namespace mrl {

/// UI thread. Does nothing if the handle is null or the window is gone. The system may refuse the
/// foreground; check foreground() afterwards if it matters.
void raiseWindow(WindowSystem& windows, WindowHandle window);

}  // namespace mrl
