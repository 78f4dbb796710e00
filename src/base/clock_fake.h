// A clock that moves only when a test says so.
#pragma once

#include "base/clock.h"

namespace mrl {

class ClockFake : public Clock {
 public:
  uint64_t nowMs() const override { return time; }
  LocalTime localTime() const override { return wall; }
  void advance(uint64_t byMs) { time += byMs; }

  uint64_t time = 1'000'000;
  LocalTime wall;  // set apart, as the user sets the PC's clock
};

}  // namespace mrl
