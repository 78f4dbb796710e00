#pragma once

#include <vector>

#include "core/instances.h"

namespace mrl {

class InstancesFake : public Instances {
 public:
  bool claim(uint32_t waitMs) override {
    waitedMs += waitMs;
    return waitedMs > busyMs;
  }
  void announce(WindowHandle clock) override { announced = clock; }
  Account own() override { return account; }
  std::vector<OtherClock> others() override {
    return waitedMs > hiddenMs ? clocks : std::vector<OtherClock>{};
  }
  bool askForSettings(WindowHandle clock) override {
    asked.push_back(clock);
    return !goes;
  }

  Account account{u"S-1-5-21-1", true};
  std::vector<OtherClock> clocks;
  uint64_t busyMs = 0;    // until then another process holds the lock
  uint64_t hiddenMs = 0;  // until then there are no clocks yet
  bool goes = false;      // the window that is asked is gone

  uint64_t waitedMs = 0;
  WindowHandle announced;
  std::vector<WindowHandle> asked;
};

}  // namespace mrl
