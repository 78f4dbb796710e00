// The overlay's fakes meet the contracts of the real windows, and fail on request.
#include <gtest/gtest.h>

#include "overlay/clock_window_contract.h"
#include "overlay/clock_window_fake.h"
#include "overlay/resize_toolbar_contract.h"
#include "overlay/resize_toolbar_fake.h"

namespace mrl {
namespace {

class FakeClockWindowFixture : public testing::Test {
 protected:
  ClockWindow& window() { return fake; }
  ClockWindowFake fake;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ClockWindowContract, FakeClockWindowFixture);

class FakeToolbarFixture : public testing::Test {
 protected:
  ResizeToolbar& toolbar() { return fake; }
  bool exists() const { return fake.exists; }
  ResizeToolbarFake fake;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ResizeToolbarContract, FakeToolbarFixture);

TEST(ClockWindowFakeTest, ItFailsOnCommand) {
  ClockWindowFake fake;
  fake.createFails = true;
  EXPECT_FALSE(fake.create({0, 0}, {183, 82}));
  EXPECT_FALSE(fake.handle());
}

TEST(ClockWindowFakeTest, ItRemembersWhatItWasTold) {
  ClockWindowFake fake;
  ASSERT_TRUE(fake.create({0, 0}, {183, 82}));
  fake.setText(u"15:00");
  fake.invalidate();
  EXPECT_EQ(fake.text, u"15:00");
  EXPECT_EQ(fake.calls, (std::vector<std::string>{"create", "setText", "invalidate"}));
}

TEST(ClockWindowFakeTest, WhileItIsHiddenItForgetsWhatItWasToPaint) {
  ClockWindowFake fake;
  ASSERT_TRUE(fake.create({0, 0}, {183, 82}));
  fake.show();
  fake.invalidate();
  EXPECT_TRUE(fake.paintDue);
  fake.hide();
  fake.invalidate();
  fake.show();
  EXPECT_FALSE(fake.paintDue);
}

TEST(ResizeToolbarFakeTest, ItFailsOnCommand) {
  ResizeToolbarFake fake;
  fake.showFails = true;
  fake.show({40, 140}, 96);
  EXPECT_FALSE(fake.exists);
}

TEST(ResizeToolbarFakeTest, ItRemembersPlaceAndDpi) {
  ResizeToolbarFake fake;
  fake.show({40, 140}, 96);
  fake.place({50, 150}, 144);
  EXPECT_EQ(fake.at, (Point{50, 150}));
  EXPECT_EQ(fake.shownDpi, 144);
}

}  // namespace
}  // namespace mrl
