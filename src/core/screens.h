// The monitors of the desktop.
#pragma once

#include <string>
#include <vector>

#include "base/geometry.h"

namespace mrl {

struct Monitor {
  std::u16string name;  // the system's; survives a change of resolution or arrangement
  Rect rect;            // including its taskbar
};

/// UI thread only. Pixels of the virtual screen.
class Screens {
 public:
  virtual ~Screens() = default;
  /// The primary monitor without its taskbar.
  [[nodiscard]] virtual Rect primaryWorkArea() = 0;
  [[nodiscard]] virtual int systemDpi() = 0;
  /// In the system's order.
  [[nodiscard]] virtual std::vector<Monitor> monitors() = 0;
};

}  // namespace mrl
