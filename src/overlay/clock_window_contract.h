// Contract tests for every ClockWindow, real or fake. A test supplies a fixture with `window()`.
#pragma once

#include <gtest/gtest.h>

#include "overlay/clock_window.h"

namespace mrl {

constexpr Rect kContractRect{40, 50, 223, 132};
constexpr Point kContractPlace{40, 50};
constexpr Size kContractSize{183, 82};

template <class Fixture>
class ClockWindowContract : public Fixture {
 protected:
  void create() { ASSERT_TRUE(this->window().create(kContractPlace, kContractSize)); }
};
TYPED_TEST_SUITE_P(ClockWindowContract);

TYPED_TEST_P(ClockWindowContract, BeforeItsCreationThereIsNothing) {
  const ClockWindow& window = this->window();
  EXPECT_FALSE(window.handle());
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.rect(), Rect{});
  EXPECT_EQ(window.dpi(), 96);
  EXPECT_EQ(window.nearestWorkArea(), Rect{});
}

TYPED_TEST_P(ClockWindowContract, WithoutAWindowCommandsDoNothing) {
  ClockWindow& window = this->window();
  window.show();
  window.raise();
  window.moveTo({1, 2});
  window.resize({300, 200});
  window.setRect(kContractRect);
  window.invalidate();
  window.dropRegion();
  window.setText(u"15:00");
  window.captureMouse();
  window.releaseMouse();
  window.destroy();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.rect(), Rect{});
}

TYPED_TEST_P(ClockWindowContract, ANewWindowIsHiddenAndStandsWhereItWasAskedTo) {
  this->create();
  EXPECT_TRUE(this->window().handle());
  EXPECT_FALSE(this->window().isVisible());
  EXPECT_EQ(this->window().rect(), kContractRect);
}

TYPED_TEST_P(ClockWindowContract, ItIsShownAndHidden) {
  this->create();
  this->window().show();
  EXPECT_TRUE(this->window().isVisible());
  this->window().hide();
  EXPECT_FALSE(this->window().isVisible());
}

TYPED_TEST_P(ClockWindowContract, RaisingShowsNothing) {
  this->create();
  this->window().raise();
  EXPECT_FALSE(this->window().isVisible());
}

TYPED_TEST_P(ClockWindowContract, AMoveKeepsTheSize) {
  this->create();
  this->window().moveTo({30, 70});
  EXPECT_EQ(this->window().rect(), (Rect{30, 70, 213, 152}));
}

TYPED_TEST_P(ClockWindowContract, AResizeKeepsThePlace) {
  this->create();
  this->window().resize({300, 200});
  EXPECT_EQ(this->window().rect(), (Rect{40, 50, 340, 250}));
}

TYPED_TEST_P(ClockWindowContract, PlaceAndSizeAreSetAtOnce) {
  this->create();
  this->window().setRect({10, 20, 130, 70});
  EXPECT_EQ(this->window().rect(), (Rect{10, 20, 130, 70}));
}

TYPED_TEST_P(ClockWindowContract, ItLiesOnAMonitor) {
  this->create();
  EXPECT_GT(this->window().nearestWorkArea().width(), 0);
  EXPECT_GT(this->window().nearestWorkArea().height(), 0);
}

TYPED_TEST_P(ClockWindowContract, AfterItsEndThereIsNothingAndItCanBeMadeAgain) {
  this->create();
  this->window().show();
  this->window().destroy();
  EXPECT_FALSE(this->window().handle());
  EXPECT_FALSE(this->window().isVisible());
  EXPECT_EQ(this->window().rect(), Rect{});
  this->create();
  EXPECT_FALSE(this->window().isVisible());
}

REGISTER_TYPED_TEST_SUITE_P(ClockWindowContract, BeforeItsCreationThereIsNothing,
                            WithoutAWindowCommandsDoNothing,
                            ANewWindowIsHiddenAndStandsWhereItWasAskedTo, ItIsShownAndHidden,
                            RaisingShowsNothing, AMoveKeepsTheSize, AResizeKeepsThePlace,
                            PlaceAndSizeAreSetAtOnce, ItLiesOnAMonitor,
                            AfterItsEndThereIsNothingAndItCanBeMadeAgain);

}  // namespace mrl
