// The small toolbar below the clock in resize mode: accepts the size, or restores the default.
#pragma once

#include "base/geometry.h"

namespace mrl {

/// UI thread only. Screen pixels. The clock's window owns it and destroys it with itself at the
/// latest. Its buttons send their commands through the window procedure. If it can't be created it
/// is missing silently: the menu also offers the way out of resize mode.
class ResizeToolbar {
 public:
  virtual ~ResizeToolbar() = default;

  /// Creates it if necessary, places it and shows it without activating it.
  virtual void show(Point topLeft, int dpi) = 0;
  /// Moves it, if it exists, and redoes the layout if `dpi` has changed.
  virtual void place(Point topLeft, int dpi) = 0;
  virtual void remove() = 0;
};

}  // namespace mrl
