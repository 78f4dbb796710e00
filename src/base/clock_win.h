#pragma once

#include "base/clock.h"

namespace mrl {

class ClockWin : public Clock {
 public:
  uint64_t nowMs() const override;
  LocalTime localTime() const override;
};

}  // namespace mrl
