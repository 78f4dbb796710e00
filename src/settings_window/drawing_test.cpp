#include "settings_window/drawing.h"

#include <gtest/gtest.h>

#include "settings_window/control_look.h"

namespace mrl {
namespace {

TEST(OutlinePathTest, RunsHalfAPixelWithinTheRectangle) {
  EXPECT_EQ(outlinePath({{10, 20, 110, 60}, 7}), (OutlinePath{10.5F, 20.5F, 99, 39, 14}));
}

TEST(OutlinePathTest, AWiderLineRunsAsMuchFurtherWithin) {
  EXPECT_EQ(outlinePath({{10, 20, 110, 60}, 7, kWhite, kAccent, 2}),
            (OutlinePath{11, 21, 98, 38, 14}));
  EXPECT_EQ(outlinePath({{10, 20, 110, 60}, 7, kWhite, kAccent, 3}),
            (OutlinePath{11.5F, 21.5F, 97, 37, 14}));
}

TEST(OutlinePathTest, WithoutALineTheFillEndsWhereAThinOneRuns) {
  EXPECT_EQ(outlinePath({{10, 20, 110, 60}, 7, kWhite, {}, 2}),
            (OutlinePath{10.5F, 20.5F, 99, 39, 14}));
}

TEST(OutlinePathTest, ACornerIsNoLargerThanTheShape) {
  EXPECT_EQ(outlinePath({{0, 0, 11, 60}, 20}).corner, 10);
  EXPECT_EQ(outlinePath({{0, 0, 60, 11}, 20}).corner, 10);
}

TEST(OutlinePathTest, WithoutARadiusTheCornersAreSharp) {
  EXPECT_EQ(outlinePath({{0, 0, 60, 60}, 0}).corner, 0);
}

TEST(OutlinePathTest, NothingHasNoCorners) { EXPECT_EQ(outlinePath({{5, 5, 5, 5}, 7}).corner, 0); }

}  // namespace
}  // namespace mrl
