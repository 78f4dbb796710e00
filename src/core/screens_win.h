#pragma once

#include "core/screens.h"

namespace mrl {

class ScreensWin : public Screens {
 public:
  Rect primaryWorkArea() override;
  int systemDpi() override;
  std::vector<Monitor> monitors() override;
};

}  // namespace mrl
