// Detects a slide show from the windows of the desktop alone: the fallback for when no presentation
// program responds to automation.
#pragma once

#include <string>
#include <vector>

#include "base/window_handle.h"
#include "presentation/program_windows.h"

namespace mrl {

/// Result of one scan. Valid only for the call that asked for it: windows come and go.
struct WindowScan {
  WindowHandle firstWindow;            // topmost window of a presentation program, show or not
  WindowHandle fullScreenWindow;       // the show that covers its monitor
  bool found = false;                  // a presentation program has a window
  std::u16string fullScreenTitle;      // of fullScreenWindow
  std::u16string documentFilter;       // as passed in
  std::vector<std::u16string> titles;  // of all such windows, topmost first
};

/// UI thread. If `documentFilter` is not empty it is a path: only a show whose title names that
/// document can become `fullScreenWindow`. Never fails; skips windows that can't be queried.
WindowScan scanPresentationWindows(ProgramWindows& programs, const std::u16string& documentFilter);

}  // namespace mrl
