// Contract tests for every ResizeToolbar, real or fake. A test supplies a fixture with `toolbar()`
// and `exists()`.
#pragma once

#include <gtest/gtest.h>

#include "overlay/resize_toolbar.h"

namespace mrl {

template <class Fixture>
class ResizeToolbarContract : public Fixture {};
TYPED_TEST_SUITE_P(ResizeToolbarContract);

TYPED_TEST_P(ResizeToolbarContract, AtFirstThereIsNone) { EXPECT_FALSE(this->exists()); }

TYPED_TEST_P(ResizeToolbarContract, PlacingOrRemovingNoneDoesNothing) {
  this->toolbar().place({1, 2}, 96);
  this->toolbar().remove();
  EXPECT_FALSE(this->exists());
}

TYPED_TEST_P(ResizeToolbarContract, ShowingMakesIt) {
  this->toolbar().show({40, 140}, 96);
  EXPECT_TRUE(this->exists());
}

TYPED_TEST_P(ResizeToolbarContract, ItIsRemoved) {
  this->toolbar().show({40, 140}, 96);
  this->toolbar().remove();
  EXPECT_FALSE(this->exists());
}

REGISTER_TYPED_TEST_SUITE_P(ResizeToolbarContract, AtFirstThereIsNone,
                            PlacingOrRemovingNoneDoesNothing, ShowingMakesIt, ItIsRemoved);

}  // namespace mrl
