// The small toolbar below the clock in resize mode: accept the size, or go back to the default one.
#pragma once

#include "base/geometry.h"

namespace mrl {

/// UI thread only. It belongs to the clock's window and goes with it at the latest. Its buttons
/// send their commands through the window procedure. A toolbar that can't be made is simply not
/// there: the menu offers the same way out of resize mode.
class ResizeToolbar {
 public:
  virtual ~ResizeToolbar() = default;

  /// Makes it if need be, places it and shows it without activating it.
  virtual void show(Point topLeft, int dpi) = 0;
  /// Moves it, if there is one, and lays it out anew if `dpi` is another one than before.
  virtual void place(Point topLeft, int dpi) = 0;
  virtual void remove() = 0;
};

}  // namespace mrl
