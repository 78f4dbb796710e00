// A time source that moves only when a test says so.
#pragma once

#include "base/clock.h"

namespace mrl {

class ClockFake : public Clock {
 public:
  uint64_t nowMs() const override { return time; }
  LocalTime localTime() const override { return wall; }
  void advance(uint64_t byMs) { time += byMs; }

  uint64_t time = 1'000'000;
  LocalTime wall;  // independent of `time`, like the PC's own clock
};

}  // namespace mrl
