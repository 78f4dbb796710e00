#include "base/clock_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "base/replaced_import_win.h"

namespace mrl {
namespace {

void WINAPI quarterPastThree(SYSTEMTIME* time) {
  time->wHour = 3;
  time->wMinute = 15;
  time->wSecond = 20;
}

TEST(ClockWinTest, DurationsComeFromTheTimeSinceTheSystemStarted) {
  const uint64_t before = GetTickCount64();
  const uint64_t now = ClockWin().nowMs();
  EXPECT_GE(now, before);
  EXPECT_LE(now, GetTickCount64());
}

TEST(ClockWinTest, TheWallClockIsTheLocalOne) {
  // The local time of a test machine may well be UTC.
  const ReplacedImport<decltype(quarterPastThree)> system("GetLocalTime", quarterPastThree);
  const LocalTime local = ClockWin().localTime();
  EXPECT_EQ(local.hour, 3);
  EXPECT_EQ(local.minute, 15);
  EXPECT_EQ(local.second, 20);
}

}  // namespace
}  // namespace mrl
