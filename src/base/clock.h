// The time: the monotonic one that every duration in the program is measured with, and the one on
// the wall, which is only ever shown.
#pragma once

#include <cstdint>

namespace mrl {

/// Of the day, in the user's time zone.
struct LocalTime {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// Any thread may call it.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Milliseconds since an arbitrary start. Never 0, which means "not set" in every time field.
  [[nodiscard]] virtual uint64_t nowMs() const = 0;
  [[nodiscard]] virtual LocalTime localTime() const = 0;
};

}  // namespace mrl
