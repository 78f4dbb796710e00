#pragma once

#include "core/screens.h"

namespace mrl {

class ScreensFake : public Screens {
 public:
  Rect primaryWorkArea() override { return workArea; }
  int systemDpi() override { return dpi; }
  std::vector<Monitor> monitors() override { return all; }

  Rect workArea{0, 0, 1920, 1040};
  int dpi = 96;
  std::vector<Monitor> all{{u"laptop", {0, 0, 1920, 1080}}, {u"projector", {1920, 0, 2944, 768}}};
};

}  // namespace mrl
