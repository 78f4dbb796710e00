#include "core/menu_look.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(MenuLookTest, AnItemThatIsNotSelectedIsPlain) {
  EXPECT_EQ(menuItemLook(false, false), MenuItemLook::Plain);
  EXPECT_EQ(menuItemLook(false, true), MenuItemLook::Plain);
}

TEST(MenuLookTest, ASelectedItemHasAPill) {
  EXPECT_EQ(menuItemLook(true, false), MenuItemLook::Pill);
}

TEST(MenuLookTest, InHighContrastASelectedItemHasTheSystemsColours) {
  EXPECT_EQ(menuItemLook(true, true), MenuItemLook::Highlighted);
}

TEST(MenuLookTest, AnItemIsAsWideAsItsTextAndFortyEightAndThirtyHigh) {
  EXPECT_EQ(menuItemSize(100, 96), (Size{148, 30}));
}

TEST(MenuLookTest, TheSizeIsScaledButNotTheTextThatIsMeasuredInPixels) {
  EXPECT_EQ(menuItemSize(100, 144), (Size{172, 45}));
}

TEST(MenuLookTest, ThePillIsInsetByThreeAndTwoWithCornersOfEight) {
  const MenuItemPlaces places = menuItemPlaces({10, 100, 210, 130}, 96);
  EXPECT_EQ(places.pill, (Rect{13, 102, 207, 128}));
  EXPECT_EQ(places.pillCorner, 8);
}

TEST(MenuLookTest, TheCheckBoxBeginsFiveFromTheLeftAndIsTwentyWide) {
  EXPECT_EQ(menuItemPlaces({10, 100, 210, 130}, 96).check, (Rect{15, 100, 35, 130}));
}

TEST(MenuLookTest, TheTextBeginsThirtyFromTheLeftAndEndsTwelveShortOfTheRight) {
  EXPECT_EQ(menuItemPlaces({10, 100, 210, 130}, 96).text, (Rect{40, 100, 198, 130}));
}

TEST(MenuLookTest, AllPlacesAreScaled) {
  const MenuItemPlaces places = menuItemPlaces({10, 100, 210, 145}, 192);
  EXPECT_EQ(places.pill, (Rect{16, 104, 204, 141}));
  EXPECT_EQ(places.pillCorner, 16);
  EXPECT_EQ(places.check, (Rect{20, 100, 60, 145}));
  EXPECT_EQ(places.text, (Rect{70, 100, 186, 145}));
}

}  // namespace
}  // namespace mrl
