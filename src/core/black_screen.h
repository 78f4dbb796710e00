// The windows that black out every monitor.
#pragma once

#include <vector>

#include "base/window_handle.h"
#include "core/screens.h"

namespace mrl {

/// UI thread only. Owns the black windows.
class BlackScreen {
 public:
  virtual ~BlackScreen() = default;
  /// Shows one window over each monitor; the first takes the foreground.
  virtual void cover(const std::vector<Monitor>& monitors) = 0;
  /// Moves the window of `monitor` to the monitor's current rectangle. A monitor without a window
  /// gets none.
  virtual void follow(const Monitor& monitor) = 0;
  virtual void uncover() = 0;
  [[nodiscard]] virtual bool isCovering() = 0;
  /// Whether `window` is one of the black windows.
  [[nodiscard]] virtual bool contains(WindowHandle window) const = 0;
  /// Lifts the windows that still exist to the top of the always-on-top band.
  virtual void raise() = 0;
};

}  // namespace mrl
