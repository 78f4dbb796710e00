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
  /// One window over each monitor, shown; the first takes the foreground.
  virtual void cover(const std::vector<Monitor>& monitors) = 0;
  /// Moves the window over `monitor` to where that is now; a monitor without one gets none.
  virtual void follow(const Monitor& monitor) = 0;
  virtual void uncover() = 0;
  [[nodiscard]] virtual bool isCovering() = 0;
  /// Whether that is one of the black windows.
  [[nodiscard]] virtual bool contains(WindowHandle window) const = 0;
  /// Lifts the windows that still exist to the top of the always-on-top band.
  virtual void raise() = 0;
};

}  // namespace mrl
