// The monitors of the desktop.
#pragma once

#include <string>
#include <vector>

#include "base/geometry.h"

namespace mrl {

struct Monitor {
  std::u16string name;  // the system's, which outlives another resolution or arrangement
  Rect rect;            // with its task bar
};

/// UI thread only. Pixels of the virtual screen.
class Screens {
 public:
  virtual ~Screens() = default;
  /// The primary monitor less the task bar.
  [[nodiscard]] virtual Rect primaryWorkArea() = 0;
  [[nodiscard]] virtual int systemDpi() = 0;
  /// In the system's order.
  [[nodiscard]] virtual std::vector<Monitor> monitors() = 0;
};

}  // namespace mrl
