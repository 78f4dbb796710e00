// The steady time of a POSIX system, for tests and for the program without a desktop.
#pragma once

#include "core/clock.h"

namespace mrl {

class ClockPosix : public Clock {
 public:
  uint64_t nowMs() const override;
};

}  // namespace mrl
