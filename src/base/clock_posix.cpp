#include "base/clock_posix.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace mrl {

uint64_t ClockPosix::nowMs() const {
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
  return static_cast<uint64_t>(std::max<int64_t>(ms, 1));
}

LocalTime ClockPosix::localTime() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace mrl
