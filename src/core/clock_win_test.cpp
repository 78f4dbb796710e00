#include "core/clock_win.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace mrl {
namespace {

int secondsOfToday() {
  SYSTEMTIME time{};
  GetLocalTime(&time);
  return (time.wHour * 60 + time.wMinute) * 60 + time.wSecond;
}

TEST(ClockWinTest, DurationsComeFromTheTimeSinceTheSystemStarted) {
  const uint64_t before = GetTickCount64();
  const uint64_t now = ClockWin().nowMs();
  EXPECT_GE(now, before);
  EXPECT_LE(now, GetTickCount64());
}

TEST(ClockWinTest, TheWallClockIsTheLocalOne) {
  const int before = secondsOfToday();
  const LocalTime local = ClockWin().localTime();
  const int after = secondsOfToday();
  const int seconds = (local.hour * 60 + local.minute) * 60 + local.second;
  if (after < before) return;  // midnight came between
  EXPECT_GE(seconds, before);
  EXPECT_LE(seconds, after);
}

}  // namespace
}  // namespace mrl
