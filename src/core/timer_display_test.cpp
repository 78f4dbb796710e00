// The text of the clock, and when the clock is hidden.
#include <gtest/gtest.h>

#include <limits>

#include "core/timer_samples.h"

namespace mrl {
namespace {

constexpr uint64_t kNowMs = 1'000'000;

Settings countdownOf(uint32_t seconds) {
  Settings settings;
  settings.duration = seconds;
  return settings;
}

Settings countUp() {
  Settings settings;
  settings.down = false;
  return settings;
}

// timeText.

TEST(TimeTextTest, ACountdownShowsTheWholeTimeForItsFirstSecond) {
  EXPECT_EQ(timeText(pausedAt(0), kNowMs, countdownOf(900)), u"15:00");
  EXPECT_EQ(timeText(pausedAt(999), kNowMs, countdownOf(900)), u"15:00");
  EXPECT_EQ(timeText(pausedAt(1'000), kNowMs, countdownOf(900)), u"14:59");
}

TEST(TimeTextTest, AtTheEndItReadsZeroForOneSecond) {
  EXPECT_EQ(timeText(pausedAt(899'999), kNowMs, countdownOf(900)), u"00:01");
  EXPECT_EQ(timeText(pausedAt(900'000), kNowMs, countdownOf(900)), u"00:00");
  EXPECT_EQ(timeText(pausedAt(900'999), kNowMs, countdownOf(900)), u"00:00");
}

TEST(TimeTextTest, OvertimeBeginsOneSecondAfterTheEnd) {
  EXPECT_EQ(timeText(pausedAt(901'000), kNowMs, countdownOf(900)), u"已超时 00:01");
}

TEST(TimeTextTest, OvertimeGoesOnPastOneHour) {
  EXPECT_EQ(timeText(pausedAt(4'500'000), kNowMs, countdownOf(900)), u"已超时 01:00:00");
}

TEST(TimeTextTest, ADurationOfZeroReadsZeroAndThenOvertime) {
  EXPECT_EQ(timeText(pausedAt(0), kNowMs, countdownOf(0)), u"00:00");
  EXPECT_EQ(timeText(pausedAt(999), kNowMs, countdownOf(0)), u"00:00");
  EXPECT_EQ(timeText(pausedAt(1'000), kNowMs, countdownOf(0)), u"已超时 00:01");
}

TEST(TimeTextTest, CountingUpShowsTheTimeUsed) {
  EXPECT_EQ(timeText(pausedAt(0), kNowMs, countUp()), u"00:00");
  EXPECT_EQ(timeText(pausedAt(61'999), kNowMs, countUp()), u"01:01");
}

TEST(TimeTextTest, CountingUpKnowsNoOvertimeAndNoLimit) {
  EXPECT_EQ(timeText(pausedAt(901'000), kNowMs, countUp()), u"15:01");
  EXPECT_EQ(timeText(pausedAt(360'000'000), kNowMs, countUp()), u"100:00:00");
}

TEST(TimeTextTest, ARunningTimerIsReadAtTheMomentAsked) {
  TimerState timer;
  startTimer(timer, kNowMs);
  EXPECT_EQ(timeText(timer, kNowMs + 2'000, countdownOf(900)), u"14:58");
}

TEST(TimeTextTest, AChangedDurationShowsAtOnceOnARunningTimer) {
  TimerState timer;
  startTimer(timer, kNowMs);
  EXPECT_EQ(timeText(timer, kNowMs + 60'000, countdownOf(900)), u"14:00");
  EXPECT_EQ(timeText(timer, kNowMs + 60'000, countdownOf(600)), u"09:00");
  EXPECT_EQ(timeText(timer, kNowMs + 60'000, countdownOf(30)), u"已超时 00:30");
}

TEST(TimeTextTest, AClockThatRunsBackwardsShowsTheWholeTime) {
  TimerState timer;
  startTimer(timer, kNowMs);
  EXPECT_EQ(timeText(timer, kNowMs - 5'000, countdownOf(900)), u"15:00");
}

TEST(TimeTextTest, TheLongestTimesDoNotOverflow) {
  constexpr int64_t kLongestMs = std::numeric_limits<int64_t>::max();
  constexpr uint32_t kLongest = std::numeric_limits<uint32_t>::max();
  EXPECT_EQ(timeText(pausedAt(0), kNowMs, countdownOf(kLongest)), u"1193046:28:15");
  EXPECT_EQ(timeText(pausedAt(kLongestMs), kNowMs, countdownOf(0)), u"已超时 2562047788015:12:55");
}

// overlayHidden.

struct HideCase {
  bool hideExcluded = false;
  bool hideNoDocument = false;
  bool hideZero = false;
  bool down = true;
  bool black = false;
  uint32_t duration = 10;
  int64_t elapsedMs = 0;
  bool excluded = false;
  bool presentationsOpen = true;
};

bool hidden(const HideCase& it) {
  Settings settings = countdownOf(it.duration);
  settings.hideExcluded = it.hideExcluded;
  settings.hideNoDocument = it.hideNoDocument;
  settings.hideZero = it.hideZero;
  settings.down = it.down;
  settings.black = it.black;
  return overlayHidden(settings, pausedAt(it.elapsedMs), kNowMs, it.excluded, it.presentationsOpen);
}

TEST(OverlayHiddenTest, WithoutARuleTheClockStays) {
  EXPECT_FALSE(hidden({.elapsedMs = 60'000, .excluded = true, .presentationsOpen = false}));
}

TEST(OverlayHiddenTest, AnExcludedShowHidesItWhenAsked) {
  EXPECT_TRUE(hidden({.hideExcluded = true, .excluded = true}));
  EXPECT_FALSE(hidden({.hideExcluded = true, .excluded = false}));
}

TEST(OverlayHiddenTest, NoOpenPresentationHidesItWhenAsked) {
  EXPECT_TRUE(hidden({.hideNoDocument = true, .presentationsOpen = false}));
  EXPECT_FALSE(hidden({.hideNoDocument = true, .presentationsOpen = true}));
}

TEST(OverlayHiddenTest, ZeroHidesItWhenAsked) {
  EXPECT_FALSE(hidden({.hideZero = true, .elapsedMs = 9'999}));
  EXPECT_TRUE(hidden({.hideZero = true, .elapsedMs = 10'000}));
  EXPECT_TRUE(hidden({.hideZero = true, .elapsedMs = 60'000}));
}

TEST(OverlayHiddenTest, ABlackScreenKeepsTheOvertimeInSight) {
  EXPECT_FALSE(hidden({.hideZero = true, .black = true, .elapsedMs = 60'000}));
}

TEST(OverlayHiddenTest, ABlackScreenDoesNotLiftTheOtherRules) {
  EXPECT_TRUE(hidden({.hideExcluded = true, .black = true, .excluded = true}));
  EXPECT_TRUE(hidden({.hideNoDocument = true, .black = true, .presentationsOpen = false}));
}

TEST(OverlayHiddenTest, CountingUpZeroHidesNothing) {
  EXPECT_FALSE(hidden({.hideZero = true, .down = false, .elapsedMs = 60'000}));
}

TEST(OverlayHiddenTest, CountingUpTheOtherRulesHold) {
  EXPECT_TRUE(hidden({.hideExcluded = true, .down = false, .excluded = true}));
  EXPECT_TRUE(hidden({.hideNoDocument = true, .down = false, .presentationsOpen = false}));
}

TEST(OverlayHiddenTest, ARunningTimerIsReadAtTheMomentAsked) {
  Settings settings = countdownOf(10);
  settings.hideZero = true;
  TimerState timer;
  startTimer(timer, kNowMs);
  EXPECT_FALSE(overlayHidden(settings, timer, kNowMs + 9'999, false, true));
  EXPECT_TRUE(overlayHidden(settings, timer, kNowMs + 10'000, false, true));
}

TEST(OverlayHiddenTest, ADurationOfZeroHidesItAtOnce) {
  EXPECT_TRUE(hidden({.hideZero = true, .duration = 0, .elapsedMs = 0}));
  EXPECT_FALSE(hidden({.hideZero = true, .black = true, .duration = 0, .elapsedMs = 0}));
}

}  // namespace
}  // namespace mrl
