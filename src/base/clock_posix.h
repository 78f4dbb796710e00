// The time source on POSIX, for tests and for the program without a desktop.
#pragma once

#include "base/clock.h"

namespace mrl {

class ClockPosix : public Clock {
 public:
  uint64_t nowMs() const override;
  LocalTime localTime() const override;
};

}  // namespace mrl
