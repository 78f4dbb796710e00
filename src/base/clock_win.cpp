#include "base/clock_win.h"

#include <windows.h>

#include <algorithm>

namespace mrl {

uint64_t ClockWin::nowMs() const { return std::max<uint64_t>(GetTickCount64(), 1); }

LocalTime ClockWin::localTime() const {
  SYSTEMTIME time{};
  GetLocalTime(&time);
  return {time.wHour, time.wMinute, time.wSecond};
}

}  // namespace mrl
