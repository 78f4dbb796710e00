// The raising sequence.
#include "presentation/raise_window.h"

namespace mrl {

void raiseWindow(WindowSystem& windows, WindowHandle window) {
  if (!windows.isWindow(window)) return;
  windows.show(window);
  // A brief spell as topmost lifts the window above everything without leaving it there.
  windows.setTopmost(window, true);
  windows.setTopmost(window, false);
  windows.bringToTop(window);
  windows.setForeground(window);
}

}  // namespace mrl
