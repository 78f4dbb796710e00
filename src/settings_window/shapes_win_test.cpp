// Shapes painted into a bitmap. Only single pixels inside and outside a shape are checked: the
// antialiasing of edges is up to the system.
#include "settings_window/shapes_win.h"

#include <gtest/gtest.h>
#include <objbase.h>
// Must come after <objbase.h>.
#include <gdiplus.h>

#include "overlay/clock_bitmap_win.h"

namespace mrl {
namespace {

constexpr uint32_t kPaper = 0xFFFFFF;
constexpr uint32_t kRed = 0xCC424A;
constexpr uint32_t kBlue = 0x226BFA;
constexpr Size kSheet{60, 50};

class SettingsShapesTest : public testing::Test {
 protected:
  void SetUp() override {
    const Gdiplus::GdiplusStartupInput input;
    ASSERT_EQ(Gdiplus::GdiplusStartup(&gdiplus, &input, nullptr), Gdiplus::Ok);
    ASSERT_TRUE(sheet.ensure(kSheet));
    paint({Area{wholeOf(kSheet), kPaper}});
  }
  void TearDown() override {
    fonts = {};
    Gdiplus::GdiplusShutdown(gdiplus);
  }
  void paint(const Drawing& drawing) {
    mrl::paint(sheet.dc(), drawing, fonts);
    GdiFlush();
  }
  uint32_t pixel(int x, int y) const { return sheet.pixel(x, y) & 0xFFFFFF; }
  /// The number of pixels within `rect` that are no longer paper.
  int painted(const Rect& rect = wholeOf(kSheet)) const {
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) count += pixel(x, y) != kPaper;
    }
    return count;
  }

  ClockBitmap sheet;
  Fonts fonts = makeFonts(96);
  ULONG_PTR gdiplus = 0;
};

TEST_F(SettingsShapesTest, AnAreaIsExactlyItsRectangle) {
  paint({Area{{10, 10, 30, 20}, kBlue}});
  EXPECT_EQ(pixel(10, 10), kBlue);
  EXPECT_EQ(pixel(29, 19), kBlue);
  EXPECT_EQ(painted(), 20 * 10);
}

TEST_F(SettingsShapesTest, AnOutlineRunsAlongAllFourSidesWithinTheRectangle) {
  paint({RoundedRect{{10, 10, 50, 40}, 7, kBlue, kRed}});
  EXPECT_EQ(pixel(10, 25), kRed);
  EXPECT_EQ(pixel(49, 25), kRed);
  EXPECT_EQ(pixel(30, 10), kRed);
  EXPECT_EQ(pixel(30, 39), kRed);
  EXPECT_EQ(pixel(30, 25), kBlue);
  EXPECT_EQ(painted(), painted({10, 10, 50, 40}));
}

TEST_F(SettingsShapesTest, ACornerIsCutOffAndASharpOneIsNot) {
  paint(
      {RoundedRect{{0, 0, 30, 30}, 7, kBlue, kRed}, RoundedRect{{30, 0, 60, 30}, 0, kBlue, kRed}});
  EXPECT_EQ(pixel(0, 0), kPaper);
  EXPECT_EQ(pixel(30, 0), kRed);
}

TEST_F(SettingsShapesTest, WithoutAnOutlineThereIsTheFillAlone) {
  paint({RoundedRect{{10, 10, 50, 40}, 7, kBlue, {}}});
  EXPECT_EQ(pixel(30, 12), kBlue);
  EXPECT_EQ(pixel(12, 25), kBlue);
}

TEST_F(SettingsShapesTest, WhatIsClippedStaysAsItWas) {
  ExcludeClipRect(sheet.dc(), 20, 15, 40, 35);
  paint({RoundedRect{{10, 10, 50, 40}, 7, kBlue, kRed}});
  EXPECT_EQ(painted({20, 15, 40, 35}), 0);
  EXPECT_EQ(pixel(15, 25), kBlue);
}

TEST_F(SettingsShapesTest, ARingIsHollowAndADiscIsNot) {
  paint({Ring{{4, 4, 24, 24}, kRed, 2}, Disc{{34, 4, 54, 24}, kBlue}});
  EXPECT_EQ(pixel(14, 14), kPaper);
  EXPECT_EQ(pixel(14, 4), kRed);
  EXPECT_EQ(pixel(44, 14), kBlue);
  EXPECT_EQ(pixel(35, 5), kPaper);
}

TEST_F(SettingsShapesTest, ALineLeadsFromOnePointToTheOther) {
  paint({Line{{5, 20}, {55, 20}, kRed, 1}});
  EXPECT_EQ(pixel(5, 20), kRed);
  EXPECT_EQ(pixel(54, 20), kRed);
  EXPECT_EQ(painted(), 50);
}

TEST_F(SettingsShapesTest, EverySectionHasASignWithinItsSquare) {
  for (int section = 0; section < 5; ++section) {
    paint({Area{wholeOf(kSheet), kPaper}, Glyph{{10, 10, 32, 32}, section, kRed}});
    EXPECT_GT(painted({10, 10, 32, 32}), 20) << section;
    EXPECT_EQ(painted(), painted({9, 9, 33, 33})) << section;
  }
}

TEST_F(SettingsShapesTest, ALabelStaysInItsRectangle) {
  paint({Label{u"MMMMMMMMMM", {5, 10, 35, 40}, Face::Body, kInk}});
  EXPECT_GT(painted(), 0);
  EXPECT_EQ(painted(), painted({5, 10, 35, 40}));
}

TEST_F(SettingsShapesTest, ACentredLabelStandsInTheMiddle) {
  paint({Label{u"I", {0, 10, 60, 40}, Face::Body, kInk, true}});
  EXPECT_GT(painted(), 0);
  EXPECT_EQ(painted(), painted({24, 10, 36, 40}));
}

TEST_F(SettingsShapesTest, TheFocusMarkIsDotted) {
  paint({FocusMark{{10, 10, 50, 40}}});
  EXPECT_GT(painted(), 30);
  EXPECT_EQ(painted({11, 11, 49, 39}), 0);
}

TEST_F(SettingsShapesTest, TheFontsAreAsHighAsTheirUnitsAtTheResolution) {
  const Fonts fine = makeFonts(144);
  LOGFONTW font{};
  GetObjectW(fine[static_cast<size_t>(Face::Digits)].get(), sizeof font, &font);
  EXPECT_EQ(font.lfHeight, -38);
  EXPECT_EQ(font.lfWeight, 600);
  EXPECT_EQ(font.lfQuality, CLEARTYPE_QUALITY);
  EXPECT_EQ(font.lfCharSet, DEFAULT_CHARSET);
  EXPECT_STREQ(font.lfFaceName, L"Consolas");
}

}  // namespace
}  // namespace mrl
