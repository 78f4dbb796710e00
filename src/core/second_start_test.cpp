#include "core/second_start.h"

#include <gtest/gtest.h>

#include "core/instances_fake.h"

namespace mrl {
namespace {

constexpr WindowHandle kFirstClock{7};

class SecondStartTest : public testing::Test {
 protected:
  SecondStartTest() {
    instances.busyMs = 60'000;
    instances.clocks = {{kFirstClock, true, instances.account}};
  }
  OtherClock& first() { return instances.clocks.front(); }
  /// This instance goes on, and without a long wait.
  void expectItGoesOn() {
    EXPECT_FALSE(handOver(instances));
    EXPECT_TRUE(instances.asked.empty());
    EXPECT_LE(instances.waitedMs, 5000u);
  }

  InstancesFake instances;
};

TEST_F(SecondStartTest, TheFirstStartGoesOnAtOnceAndAsksNobody) {
  instances.busyMs = 0;
  instances.clocks.clear();
  EXPECT_FALSE(handOver(instances));
  EXPECT_LE(instances.waitedMs, 200u);
}

TEST_F(SecondStartTest, TheSecondAsksTheFirstForItsSettingsOnce) {
  EXPECT_TRUE(handOver(instances));
  EXPECT_EQ(instances.asked, std::vector{kFirstClock});
}

TEST_F(SecondStartTest, AFirstThatHasNoClockYetIsWaitedFor) {
  instances.hiddenMs = 2000;
  EXPECT_TRUE(handOver(instances));
  EXPECT_EQ(instances.asked, std::vector{kFirstClock});
}

TEST_F(SecondStartTest, AFirstThatIsJustEndingIsWaitedForAndTheSecondTakesItsPlace) {
  instances.clocks.clear();
  instances.busyMs = 3000;
  EXPECT_FALSE(handOver(instances));
  EXPECT_LE(instances.waitedMs, 3200u);
}

TEST_F(SecondStartTest, AClockThatGoesWhileItIsAskedHasNotBeenAsked) {
  instances.goes = true;
  instances.busyMs = 1000;
  EXPECT_FALSE(handOver(instances));
}

TEST_F(SecondStartTest, WhoHoldsTheNameWithoutAClockStopsNobody) {
  instances.clocks.clear();
  expectItGoesOn();
}

TEST_F(SecondStartTest, AWindowThatOnlyLooksLikeAClockStopsNobody) {
  first().isAnnounced = false;
  expectItGoesOn();
}

TEST_F(SecondStartTest, TheClockOfAnotherUserStopsNobody) {
  first().account.user = u"S-1-5-21-2";
  expectItGoesOn();
}

TEST_F(SecondStartTest, AProcessOfLesserRightsStopsNobody) {
  first().account.isElevated = false;
  expectItGoesOn();
}

TEST_F(SecondStartTest, WithoutRightsThemselvesTwoStartsMeetAsWell) {
  first().account.isElevated = false;
  instances.account.isElevated = false;
  EXPECT_TRUE(handOver(instances));
}

TEST_F(SecondStartTest, WhereNoUserCanBeToldNobodyIsTakenForOurs) {
  first().account.user = instances.account.user = u"";
  expectItGoesOn();
}

TEST_F(SecondStartTest, AStrangersWindowInFrontHidesTheFirstFromNobody) {
  const WindowHandle strangers{9};
  instances.clocks.insert(instances.clocks.begin(), {strangers, true, {u"S-1-5-21-2", true}});
  EXPECT_TRUE(handOver(instances));
  EXPECT_EQ(instances.asked, std::vector{kFirstClock});
}

}  // namespace
}  // namespace mrl
