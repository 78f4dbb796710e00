// Formats durations. Pure; any thread.
#pragma once

#include <cstdint>
#include <string>

namespace mrl {

inline constexpr uint32_t kSecondsPerMinute = 60;

/// "mm:ss", or "hh:mm:ss" from one hour on. A negative value counts as 0.
std::u16string formatClock(int64_t seconds);

}  // namespace mrl
