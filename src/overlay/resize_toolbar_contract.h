// What every ResizeToolbar does, whether real or fake. A test gives a fixture with `toolbar()`.
#pragma once

#include <gtest/gtest.h>

#include "overlay/resize_toolbar.h"

namespace mrl {

template <class Fixture>
class ResizeToolbarContract : public Fixture {};
TYPED_TEST_SUITE_P(ResizeToolbarContract);

TYPED_TEST_P(ResizeToolbarContract, AtFirstThereIsNone) { EXPECT_FALSE(this->toolbar().handle()); }

TYPED_TEST_P(ResizeToolbarContract, PlacingOrRemovingNoneDoesNothing) {
  this->toolbar().place({1, 2});
  this->toolbar().remove();
  EXPECT_FALSE(this->toolbar().handle());
}

TYPED_TEST_P(ResizeToolbarContract, ShowingMakesIt) {
  this->toolbar().show({40, 140}, 96);
  EXPECT_TRUE(this->toolbar().handle());
}

TYPED_TEST_P(ResizeToolbarContract, ShowingAgainKeepsTheOneThereIs) {
  this->toolbar().show({40, 140}, 96);
  const WindowHandle first = this->toolbar().handle();
  this->toolbar().show({50, 150}, 96);
  EXPECT_EQ(this->toolbar().handle(), first);
}

TYPED_TEST_P(ResizeToolbarContract, ItIsRemoved) {
  this->toolbar().show({40, 140}, 96);
  this->toolbar().remove();
  EXPECT_FALSE(this->toolbar().handle());
}

REGISTER_TYPED_TEST_SUITE_P(ResizeToolbarContract, AtFirstThereIsNone,
                            PlacingOrRemovingNoneDoesNothing, ShowingMakesIt,
                            ShowingAgainKeepsTheOneThereIs, ItIsRemoved);

}  // namespace mrl
