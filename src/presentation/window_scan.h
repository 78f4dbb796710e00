// Tells from the windows of the desktop alone whether a slide show is on screen: the second source
// of truth, for when no presentation program answers to automation.
#pragma once

#include <string>
#include <vector>

#include "base/window_handle.h"
#include "presentation/window_system.h"

namespace mrl {

/// What one scan saw. It counts for the call that asked for it and no longer.
struct WindowScan {
  WindowHandle firstWindow;            // topmost window of a presentation program, show or not
  WindowHandle fullScreenWindow;       // the show that fills its monitor
  bool found = false;                  // there was some window of a presentation program
  std::u16string fullScreenTitle;      // of fullScreenWindow
  std::u16string documentFilter;       // as passed in
  std::vector<std::u16string> titles;  // of all those windows, from the top down
};

/// UI thread. A `documentFilter` that isn't empty is a path: only a show whose title names that
/// document can become `fullScreenWindow`. Never fails; windows that can't be looked at are passed
/// over.
WindowScan scanPresentationWindows(WindowSystem& windows, const std::u16string& documentFilter);

}  // namespace mrl
