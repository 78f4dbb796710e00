// The raising sequence.
#include "presentation/raise_window.h"

namespace mrl {

void raiseWindow(WindowSystem& windows, WindowHandle window) {
  if (!windows.isWindow(window)) return;
  windows.show(window);
  // Making it topmost for a moment lifts it above everything without leaving it topmost.
  windows.setTopmost(window, true);
  windows.setTopmost(window, false);
  windows.bringToTop(window);
  windows.setForeground(window);
}

}  // namespace mrl
