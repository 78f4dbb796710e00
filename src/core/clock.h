// The monotonic time that every duration in the program is measured with.
#pragma once

#include <cstdint>

namespace mrl {

/// Any thread may call it.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Milliseconds since an arbitrary start. Never 0, which means "not set" in every time field.
  [[nodiscard]] virtual uint64_t nowMs() const = 0;
};

}  // namespace mrl
