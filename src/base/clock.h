// The time source: a monotonic reading, which measures every duration in the program, and the local
// time of day, which is only ever shown.
#pragma once

#include <cstdint>

namespace mrl {

/// The time of day in the user's time zone.
struct LocalTime {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// May be called from any thread.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Milliseconds since an arbitrary start. Never 0, which means "not set" in every time field.
  [[nodiscard]] virtual uint64_t nowMs() const = 0;
  [[nodiscard]] virtual LocalTime localTime() const = 0;
};

}  // namespace mrl
