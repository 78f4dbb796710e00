// The notification area for tests.
#pragma once

#include "core/tray.h"

namespace mrl {

class TrayFake : public Tray {
 public:
  bool add() override {
    ++additions;
    if (!shellRuns || icons > 0) return false;
    ++icons;
    return true;
  }
  bool refresh() override {
    if (!shellRuns || icons == 0) return false;
    ++refreshes;
    return true;
  }
  void remove() override { icons = 0; }

  bool shellRuns = true;
  int icons = 0;
  int additions = 0;  // counts the attempts
  int refreshes = 0;
};

}  // namespace mrl
