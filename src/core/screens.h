// The monitors of the desktop.
#pragma once

#include "core/geometry.h"

namespace mrl {

/// UI thread only. Pixels of the virtual screen.
class Screens {
 public:
  virtual ~Screens() = default;
  /// The primary monitor less the task bar.
  [[nodiscard]] virtual Rect primaryWorkArea() = 0;
  [[nodiscard]] virtual int systemDpi() = 0;
};

}  // namespace mrl
