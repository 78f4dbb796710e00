// Brings another program's window in front of the audience.
#pragma once

#include "presentation/window_system.h"

namespace mrl {

/// UI thread. Does nothing for a window that is none or gone. The system may refuse the foreground;
/// who needs to know asks for it afterwards.
void raiseWindow(WindowSystem& windows, WindowHandle window);

}  // namespace mrl
