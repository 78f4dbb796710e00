// The time of a POSIX system, for tests and for the program without a desktop.
#pragma once

#include "base/clock.h"

namespace mrl {

class ClockPosix : public Clock {
 public:
  uint64_t nowMs() const override;
  LocalTime localTime() const override;
};

}  // namespace mrl
