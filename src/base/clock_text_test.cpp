#include "base/clock_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace mrl {
namespace {

TEST(FormatClockTest, ShowsMinutesAndSecondsWithTwoDigitsEach) {
  EXPECT_EQ(formatClock(0), u"00:00");
  EXPECT_EQ(formatClock(9), u"00:09");
  EXPECT_EQ(formatClock(10), u"00:10");
  EXPECT_EQ(formatClock(60), u"01:00");
  EXPECT_EQ(formatClock(599), u"09:59");
}

TEST(FormatClockTest, ShowsNoHoursBelowOneHour) { EXPECT_EQ(formatClock(3'599), u"59:59"); }

TEST(FormatClockTest, ShowsHoursFromOneHourOn) {
  EXPECT_EQ(formatClock(3'600), u"01:00:00");
  EXPECT_EQ(formatClock(59'999), u"16:39:59");
}

TEST(FormatClockTest, HoursMayGrowPastTwoDigits) {
  EXPECT_EQ(formatClock(99 * 3600 + 3599), u"99:59:59");
  EXPECT_EQ(formatClock(100 * 3600), u"100:00:00");
  EXPECT_EQ(formatClock(12'345 * 3600 + 61), u"12345:01:01");
}

TEST(FormatClockTest, ANegativeValueCountsAsZero) {
  EXPECT_EQ(formatClock(-1), u"00:00");
  EXPECT_EQ(formatClock(std::numeric_limits<int64_t>::min()), u"00:00");
}

TEST(FormatClockTest, TheGreatestValueStillHasATime) {
  EXPECT_EQ(formatClock(std::numeric_limits<int64_t>::max()), u"2562047788015215:30:07");
}

}  // namespace
}  // namespace mrl
