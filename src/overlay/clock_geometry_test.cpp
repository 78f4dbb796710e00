// Size, corners and position of the clock.
#include "overlay/clock_geometry.h"

#include <gtest/gtest.h>

#include <string_view>

#include "settings/settings.h"

namespace mrl {
namespace {

constexpr Rect kWindow{100, 200, 283, 282};  // the default size at 96 DPI

// Sizes.

TEST(ClockSizeTest, TheSmallestClockIs120By50Units) {
  EXPECT_EQ(clockSizeLimits(96).smallest, (Size{120, 50}));
  EXPECT_EQ(clockSizeLimits(144).smallest, (Size{180, 75}));
}

TEST(ClockSizeTest, TheLargestClockIs1200By600Units) {
  EXPECT_EQ(clockSizeLimits(96).largest, (Size{1200, 600}));
  EXPECT_EQ(clockSizeLimits(144).largest, (Size{1800, 900}));
}

TEST(ClockSizeTest, TheDefaultSizeIsThatOfTheSettings) {
  const Settings settings;
  EXPECT_EQ(kDefaultClockUnits.width, static_cast<int>(settings.windowWidth));
  EXPECT_EQ(kDefaultClockUnits.height, static_cast<int>(settings.windowHeight));
}

TEST(ClockSizeTest, UnitsBecomePixelsByTheDpi) {
  EXPECT_EQ(clockPixels({183, 82}, 96), (Size{183, 82}));
  EXPECT_EQ(clockPixels({183, 82}, 144), (Size{275, 123}));  // 274.5 is rounded up
}

TEST(ClockSizeTest, PixelsBecomeUnitsByTheDpi) {
  EXPECT_EQ(clockUnits({275, 123}, 144), (Size{183, 82}));
}

// The grip of the corners: 12 units.

TEST(HitTestTest, TheTopLeftGripEndsBefore12) {
  EXPECT_EQ(hitTest({100, 200}, kWindow, 96), CornerHit::TopLeft);
  EXPECT_EQ(hitTest({111, 211}, kWindow, 96), CornerHit::TopLeft);
  EXPECT_EQ(hitTest({112, 211}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({111, 212}, kWindow, 96), CornerHit::None);
}

TEST(HitTestTest, TheTopRightGripEndsBefore12) {
  EXPECT_EQ(hitTest({282, 200}, kWindow, 96), CornerHit::TopRight);
  EXPECT_EQ(hitTest({272, 211}, kWindow, 96), CornerHit::TopRight);
  EXPECT_EQ(hitTest({271, 211}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({272, 212}, kWindow, 96), CornerHit::None);
}

TEST(HitTestTest, TheBottomLeftGripEndsBefore12) {
  EXPECT_EQ(hitTest({100, 281}, kWindow, 96), CornerHit::BottomLeft);
  EXPECT_EQ(hitTest({111, 271}, kWindow, 96), CornerHit::BottomLeft);
  EXPECT_EQ(hitTest({112, 271}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({111, 270}, kWindow, 96), CornerHit::None);
}

TEST(HitTestTest, TheBottomRightGripEndsBefore12) {
  EXPECT_EQ(hitTest({282, 281}, kWindow, 96), CornerHit::BottomRight);
  EXPECT_EQ(hitTest({272, 271}, kWindow, 96), CornerHit::BottomRight);
  EXPECT_EQ(hitTest({271, 271}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({272, 270}, kWindow, 96), CornerHit::None);
}

TEST(HitTestTest, EdgesAndTheMiddleAreNoCorner) {
  EXPECT_EQ(hitTest({190, 200}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({100, 240}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({282, 240}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({190, 281}, kWindow, 96), CornerHit::None);
  EXPECT_EQ(hitTest({190, 240}, kWindow, 96), CornerHit::None);
}

TEST(HitTestTest, TheGripIsScaledByTheDpi) {
  EXPECT_EQ(hitTest({117, 217}, kWindow, 144), CornerHit::TopLeft);
  EXPECT_EQ(hitTest({118, 217}, kWindow, 144), CornerHit::None);
}

TEST(HitTestTest, WhereGripsOverlapTheEarlierRowWins) {
  constexpr Rect kTiny{0, 0, 10, 10};
  EXPECT_EQ(hitTest({5, 5}, kTiny, 96), CornerHit::TopLeft);
  constexpr Rect kFlat{0, 0, 100, 10};
  EXPECT_EQ(hitTest({95, 5}, kFlat, 96), CornerHit::TopRight);
  EXPECT_EQ(hitTest({5, 9}, kFlat, 96), CornerHit::TopLeft);
}

TEST(HitTestTest, TheAnswersAreTheSystemsNumbers) {
  EXPECT_EQ(static_cast<int>(CornerHit::None), 0);
  EXPECT_EQ(static_cast<int>(CornerHit::TopLeft), 13);
  EXPECT_EQ(static_cast<int>(CornerHit::TopRight), 14);
  EXPECT_EQ(static_cast<int>(CornerHit::BottomLeft), 16);
  EXPECT_EQ(static_cast<int>(CornerHit::BottomRight), 17);
}

TEST(HitTestTest, OnlyTheAnswersOfCornersNameOne) {
  for (const CornerHit hit :
       {CornerHit::TopLeft, CornerHit::TopRight, CornerHit::BottomLeft, CornerHit::BottomRight}) {
    EXPECT_EQ(cornerFrom(static_cast<int>(hit)), hit);
  }
  for (const int other : {-2, 0, 1, 2, 10, 11, 12, 15, 18, 20}) {
    EXPECT_EQ(cornerFrom(other), CornerHit::None) << other;
  }
}

// The corner drag.

TEST(CornerDragTest, TheWayCountsFromWhereTheDragBegan) {
  const CornerDrag drag{CornerHit::BottomRight, {1000, 500}, kWindow};
  EXPECT_EQ(draggedTo({1010, 520}, drag, 96, false),
            dragCorner(kWindow, CornerHit::BottomRight, {10, 20}, 96, false));
  const CornerDrag ofPreview{CornerHit::TopLeft, {0, 0}, kWindow};
  EXPECT_EQ(draggedTo({-10, -20}, ofPreview, 96, true),
            dragCorner(kWindow, CornerHit::TopLeft, {-10, -20}, 96, true));
}

TEST(CornerDragTest, TheTopLeftCornerMovesAndTheBottomRightStays) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::TopLeft, {-10, -20}, 96, false),
            (Rect{90, 180, 283, 282}));
}

TEST(CornerDragTest, TheTopRightCornerMovesAndTheBottomLeftStays) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::TopRight, {10, -20}, 96, false),
            (Rect{100, 180, 293, 282}));
}

TEST(CornerDragTest, TheBottomLeftCornerMovesAndTheTopRightStays) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomLeft, {-10, 20}, 96, false),
            (Rect{90, 200, 283, 302}));
}

TEST(CornerDragTest, TheBottomRightCornerMovesAndTheTopLeftStays) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomRight, {10, 20}, 96, false),
            (Rect{100, 200, 293, 302}));
}

TEST(CornerDragTest, FromTheTopLeftPastTheMinimumTheRightAndBottomEdgesDontMove) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::TopLeft, {150, 70}, 96, false),
            (Rect{163, 232, 283, 282}));
}

TEST(CornerDragTest, PastTheMaximumTheOppositeCornerDoesntMove) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomRight, {5000, 5000}, 96, false),
            (Rect{100, 200, 1300, 800}));
  EXPECT_EQ(dragCorner(kWindow, CornerHit::TopLeft, {-5000, -5000}, 96, false),
            (Rect{-917, -318, 283, 282}));
}

TEST(CornerDragTest, TheLimitsAreScaledByTheDpi) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomRight, {-500, -500}, 144, false),
            (Rect{100, 200, 280, 275}));
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomRight, {5000, 5000}, 144, false),
            (Rect{100, 200, 1900, 1100}));
}

TEST(CornerDragTest, WidthAndHeightAreLimitedEachForItself) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomRight, {-500, 20}, 96, false),
            (Rect{100, 200, 220, 302}));
}

TEST(CornerDragTest, APreviewKeepsItsTopLeftCornerWhicheverCornerIsDragged) {
  EXPECT_EQ(dragCorner(kWindow, CornerHit::TopLeft, {-10, -20}, 96, true),
            (Rect{100, 200, 293, 302}));
  EXPECT_EQ(dragCorner(kWindow, CornerHit::TopRight, {10, -20}, 96, true),
            (Rect{100, 200, 293, 302}));
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomLeft, {-10, 20}, 96, true),
            (Rect{100, 200, 293, 302}));
  EXPECT_EQ(dragCorner(kWindow, CornerHit::BottomRight, {10, 20}, 96, true),
            (Rect{100, 200, 293, 302}));
}

// Off-screen correction.

constexpr Rect kWorkArea{0, 40, 1000, 700};

TEST(OffScreenTest, AClockOnAMonitorThatIsGoneMoves30PixelsIntoTheNearestWorkArea) {
  EXPECT_EQ(offScreenCorrection({2000, 100, 2183, 182}, kWorkArea), (Point{30, 70}));
}

TEST(OffScreenTest, AClockThatOverlapsByOnePixelStays) {
  EXPECT_EQ(offScreenCorrection({999, 699, 1182, 781}, kWorkArea), std::nullopt);
  EXPECT_EQ(offScreenCorrection({-182, -41, 1, 41}, kWorkArea), std::nullopt);
}

TEST(OffScreenTest, AClockThatOnlyTouchesAnEdgeMoves) {
  const Point corrected{30, 70};
  EXPECT_EQ(offScreenCorrection({1000, 100, 1183, 182}, kWorkArea), corrected);
  EXPECT_EQ(offScreenCorrection({-183, 100, 0, 182}, kWorkArea), corrected);
  EXPECT_EQ(offScreenCorrection({100, 700, 283, 782}, kWorkArea), corrected);
  EXPECT_EQ(offScreenCorrection({100, -42, 283, 40}, kWorkArea), corrected);
}

TEST(OffScreenTest, AClockInsideStays) {
  EXPECT_EQ(offScreenCorrection(kWindow, kWorkArea), std::nullopt);
}

// First run.

TEST(FirstRunTest, TheClockStarts30UnitsFromTheTopRightCorner) {
  EXPECT_EQ(firstRunPlace(kWorkArea, 183, 96), (Point{1000 - 213, 70}));
}

TEST(FirstRunTest, TheDistanceIsScaledByTheDpi) {
  EXPECT_EQ(firstRunPlace(kWorkArea, 183, 144), (Point{1000 - 320, 85}));  // 319.5 is rounded up
}

// The toolbar.

TEST(ToolbarTest, ItStands6UnitsBelowTheLeftEdgeOfTheClock) {
  EXPECT_EQ(toolbarPlace(kWindow, 96), (Point{100, 288}));
  EXPECT_EQ(toolbarPlace(kWindow, 144), (Point{100, 291}));
}

TEST(ToolbarTest, ItIs222By40Units) { EXPECT_EQ(kToolbarUnits, (Size{222, 40})); }

TEST(ToolbarTest, TheFirstButtonAcceptsTheSize) {
  const ToolbarButton& button = kToolbarButtons[0];
  EXPECT_EQ(button.command, 103);
  EXPECT_EQ(std::u16string_view(button.text), u"确定");
  EXPECT_EQ(button.left, 6);
  EXPECT_EQ(button.top, 5);
  EXPECT_EQ(button.width, 74);
  EXPECT_EQ(button.height, 28);
}

TEST(ToolbarTest, TheSecondButtonRestoresTheDefaultSize) {
  const ToolbarButton& button = kToolbarButtons[1];
  EXPECT_EQ(button.command, 104);
  EXPECT_EQ(std::u16string_view(button.text), u"恢复默认");
  EXPECT_EQ(button.left, 86);
  EXPECT_EQ(button.top, 5);
  EXPECT_EQ(button.width, 126);
  EXPECT_EQ(button.height, 28);
}

TEST(ToolbarTest, TheButtonsLieInTheToolbarAndApart) {
  EXPECT_LT(kToolbarButtons[0].left + kToolbarButtons[0].width, kToolbarButtons[1].left);
  for (const ToolbarButton& button : kToolbarButtons) {
    EXPECT_LE(button.left + button.width, kToolbarUnits.width);
    EXPECT_LE(button.top + button.height, kToolbarUnits.height);
  }
}

}  // namespace
}  // namespace mrl
