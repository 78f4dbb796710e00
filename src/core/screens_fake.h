#pragma once

#include "core/screens.h"

namespace mrl {

class ScreensFake : public Screens {
 public:
  Rect primaryWorkArea() override { return workArea; }
  int systemDpi() override { return dpi; }

  Rect workArea{0, 0, 1920, 1040};
  int dpi = 96;
};

}  // namespace mrl
