// The clock as pixels, read back from the bitmap of its layered window.
#include "overlay/clock_painter_win.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

#include "overlay/clock_geometry.h"

namespace mrl {
namespace {

constexpr uint32_t alphaOf(uint32_t pixel) { return pixel >> 24; }

/// The digits are far redder than the blue background.
constexpr uint32_t redOf(uint32_t pixel) { return (pixel >> 16) & 0xFF; }

bool isInk(uint32_t pixel) { return redOf(pixel) > 128; }

class ClockPainterTest : public testing::Test {
 protected:
  // Shared by all tests: a painter's first paint is by far the slowest.
  static void SetUpTestSuite() {
    shared = std::make_unique<ClockPainterWin>();
    ASSERT_TRUE(shared->createFactories());
  }
  static void TearDownTestSuite() { shared.reset(); }

  void render(const std::u16string& text, Size units = kDefaultClockUnits, int dpi = 96) {
    picture.text = text;
    size = clockPixels(units, dpi);
    ASSERT_TRUE(painter.renderBitmap(picture, size, dpi));
  }
  uint32_t at(int x, int y) const { return painter.bitmap().pixel(x, y); }
  uint32_t fromRight(int x, int y) const { return at(size.width - 1 - x, y); }
  uint32_t fromBottom(int x, int y) const { return at(x, size.height - 1 - y); }
  uint32_t fromBottomRight(int x, int y) const {
    return at(size.width - 1 - x, size.height - 1 - y);
  }

  int count(const std::function<bool(uint32_t)>& wanted) const {
    int found = 0;
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) found += wanted(at(x, y)) ? 1 : 0;
    }
    return found;
  }
  /// The bounding rectangle of all ink; empty if there is none.
  Rect inkBox() const {
    Rect box{size.width, size.height, 0, 0};
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) {
        if (!isInk(at(x, y))) continue;
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
               std::max(box.bottom, y + 1)};
      }
    }
    return box.right == 0 ? Rect{} : box;
  }

  Settings settings;
  ClockPicture picture{.settings = settings, .text = {}};
  static inline std::unique_ptr<ClockPainterWin> shared;
  ClockPainterWin& painter = *shared;
  Size size;
};

constexpr uint32_t kGround = 0xCC0066CC;  // #0080FF at 80 %, premultiplied

// Shapes.

TEST_F(ClockPainterTest, ARectangleReachesEveryCorner) {
  settings.shape = 0;
  render(u"");
  EXPECT_EQ(count([](uint32_t pixel) { return pixel == kGround; }), 183 * 82);
}

TEST_F(ClockPainterTest, ARoundedRectangleIsCutOutAtItsCorners) {
  settings.shape = 1;
  render(u"");
  EXPECT_EQ(at(0, 0), 0U);
  EXPECT_EQ(fromRight(0, 0), 0U);
  EXPECT_EQ(fromBottom(0, 0), 0U);
  EXPECT_EQ(fromBottomRight(0, 0), 0U);
  EXPECT_EQ(at(0, 41), kGround);
  EXPECT_EQ(at(91, 0), kGround);
}

TEST_F(ClockPainterTest, TheRoundingHasARadiusOf8) {
  settings.shape = 1;
  render(u"");
  EXPECT_EQ(at(9, 0), kGround);
  EXPECT_EQ(at(0, 9), kGround);
  EXPECT_EQ(at(3, 3), kGround);
  EXPECT_LT(alphaOf(at(1, 1)), 0x80U);
}

TEST_F(ClockPainterTest, AnEllipseTouchesTheMiddleOfEachSideOnly) {
  settings.shape = 2;
  render(u"");
  EXPECT_EQ(at(0, 0), 0U);
  EXPECT_EQ(fromBottomRight(0, 0), 0U);
  EXPECT_EQ(at(20, 8), 0U);
  EXPECT_EQ(at(91, 1), kGround);
  EXPECT_EQ(fromBottom(91, 1), kGround);
  EXPECT_EQ(at(1, 41), kGround);
  EXPECT_EQ(fromRight(1, 41), kGround);
}

// Colours.

TEST_F(ClockPainterTest, TheGroundIsPremultipliedByTheOpacity) {
  settings.shape = 0;
  render(u"15:00");
  EXPECT_EQ(at(2, 2), kGround);
}

TEST_F(ClockPainterTest, TheDigitsAreOpaqueInTheirOwnColour) {
  render(u"15:00");
  EXPECT_GT(count([](uint32_t pixel) { return pixel == 0xFFFAFCFF; }), 100);
}

TEST_F(ClockPainterTest, TheBrightPhaseShowsTheAlertColour) {
  picture.blinkOn = true;
  settings.opacity = 100;
  render(u"");
  EXPECT_EQ(at(91, 41), 0xFFC0392BU);
}

TEST_F(ClockPainterTest, TextOnlyLeavesAnAlphaOfOneInEveryPixelOfTheShape) {
  settings.transparent = true;
  settings.shape = 0;
  render(u"");
  EXPECT_EQ(count([](uint32_t pixel) { return alphaOf(pixel) == 1; }), 183 * 82);
}

TEST_F(ClockPainterTest, ATextOnlyEllipseLetsClicksThroughAtTheCorners) {
  settings.transparent = true;
  settings.shape = 2;
  render(u"");
  EXPECT_EQ(alphaOf(at(0, 0)), 0U);
  EXPECT_EQ(alphaOf(fromRight(0, 0)), 0U);
  EXPECT_EQ(alphaOf(fromBottom(0, 0)), 0U);
  EXPECT_EQ(alphaOf(fromBottomRight(0, 0)), 0U);
  EXPECT_EQ(alphaOf(at(91, 41)), 1U);
}

TEST_F(ClockPainterTest, TextOnlyShowsTheDigitsInFull) {
  settings.transparent = true;
  render(u"15:00");
  EXPECT_GT(count([](uint32_t pixel) { return pixel == 0xFFFAFCFF; }), 100);
}

// Handles.

TEST_F(ClockPainterTest, HandlesAreWhiteSquaresOfSide8InTheCorners) {
  picture.handles = true;
  settings.foreground = 0;
  render(u"");
  EXPECT_EQ(at(0, 0), 0xFFFFFFFFU);
  EXPECT_EQ(at(7, 7), 0xFFFFFFFFU);
  EXPECT_EQ(fromRight(7, 7), 0xFFFFFFFFU);
  EXPECT_EQ(fromBottom(7, 7), 0xFFFFFFFFU);
  EXPECT_EQ(fromBottomRight(7, 7), 0xFFFFFFFFU);
  EXPECT_EQ(count([](uint32_t pixel) { return pixel == 0xFFFFFFFF; }), 4 * 8 * 8);
}

// Digits.

TEST_F(ClockPainterTest, TheDigitsStandInTheMiddle) {
  render(u"00:00");
  const Rect ink = inkBox();
  EXPECT_NEAR(ink.left, size.width - ink.right, 2);
  EXPECT_NEAR(ink.top, size.height - ink.bottom, 6);  // a line is taller than its digits
}

TEST_F(ClockPainterTest, ALongOvertimeTextLeaves6UnitsOnEachSide) {
  render(u"已超时 01:40:00");
  const Rect ink = inkBox();
  EXPECT_LT(ink.height(), 30);  // one line
  EXPECT_GE(ink.left, 6);
  EXPECT_LE(ink.right, size.width - 6);
  EXPECT_GT(ink.width(), (size.width - 12) * 9 / 10);
}

TEST_F(ClockPainterTest, ALongOvertimeTextFitsTheSmallestWindow) {
  render(u"已超时 01:40:00", kSmallestClockUnits);
  const Rect ink = inkBox();
  EXPECT_GE(ink.left, 6);
  EXPECT_LE(ink.right, size.width - 6);
  EXPECT_GT(ink.width(), (size.width - 12) * 9 / 10);
}

TEST_F(ClockPainterTest, TheLargestWindowGetsLargeDigits) {
  render(u"15:00", kLargestClockUnits);
  const Rect ink = inkBox();
  EXPECT_GT(ink.height(), 600 * 0.72 * 0.6);
  EXPECT_NEAR(ink.left, size.width - ink.right, 0.02 * size.width);
}

TEST_F(ClockPainterTest, ABolderWeightPutsDownMoreInk) {
  settings.fontWeight = 400;
  render(u"15:00");
  const int regular = count(isInk);
  settings.fontWeight = 700;
  render(u"15:00");
  EXPECT_GT(count(isInk), regular);
}

TEST_F(ClockPainterTest, AFontThatDoesntExistLeavesTheShape) {
  settings.fontName = u"No Such Family At All";
  render(u"15:00");
  EXPECT_EQ(at(91, 2), kGround);
}

TEST_F(ClockPainterTest, AnEmptyFontNameLeavesTheShape) {
  settings.fontName = u"";
  render(u"15:00");
  EXPECT_EQ(at(91, 2), kGround);
}

// DPI and size.

TEST_F(ClockPainterTest, AtAHigherDpiAllProportionsStay) {
  render(u"15:00", kDefaultClockUnits, 96);
  const Rect small = inkBox();
  render(u"15:00", kDefaultClockUnits, 144);
  const Rect large = inkBox();
  EXPECT_EQ(painter.bitmap().size(), (Size{275, 123}));
  EXPECT_NEAR(large.left, small.left * 1.5, 2);
  EXPECT_NEAR(large.top, small.top * 1.5, 2);
  EXPECT_NEAR(large.right, small.right * 1.5, 2);
  EXPECT_NEAR(large.bottom, small.bottom * 1.5, 2);
}

TEST_F(ClockPainterTest, HandlesGrowWithTheDpi) {
  picture.handles = true;
  settings.foreground = 0;
  render(u"", kDefaultClockUnits, 144);
  EXPECT_EQ(at(11, 11), 0xFFFFFFFFU);
  EXPECT_NE(at(12, 12), 0xFFFFFFFFU);
}

TEST_F(ClockPainterTest, ANewSizeMakesANewBitmapAndTheSameSizeKeepsIt) {
  render(u"15:00");
  const HGDIOBJ first = GetCurrentObject(painter.bitmap().dc(), OBJ_BITMAP);
  const HDC context = painter.bitmap().dc();
  render(u"14:59");
  EXPECT_EQ(GetCurrentObject(painter.bitmap().dc(), OBJ_BITMAP), first);
  render(u"14:59", kSmallestClockUnits);
  EXPECT_EQ(painter.bitmap().size(), kSmallestClockUnits);
  EXPECT_EQ(painter.bitmap().dc(), context);
  EXPECT_EQ(at(60, 2), kGround);
}

TEST_F(ClockPainterTest, APaintLeavesNothingOfTheOneBefore) {
  render(u"88:88");
  ASSERT_GT(count(isInk), 0);
  render(u"");
  EXPECT_EQ(count(isInk), 0);
}

TEST_F(ClockPainterTest, ABitmapThatCantBeMadeGivesNoPictureAndTheNextPaintTriesAgain) {
  EXPECT_FALSE(painter.renderBitmap(picture, {1 << 20, 1 << 20}, 96));
  render(u"15:00");
  EXPECT_EQ(at(91, 2), kGround);
}

TEST_F(ClockPainterTest, ANewSizeFreesTheOldBitmap) {
  render(u"15:00");
  const HGDIOBJ old = GetCurrentObject(painter.bitmap().dc(), OBJ_BITMAP);
  ASSERT_NE(GetObjectType(old), 0U);
  render(u"15:00", kLargestClockUnits);
  EXPECT_EQ(GetObjectType(old), 0U);
}

TEST(ClockBitmapTest, ASizeThatCantBeHadFreesTheOldBitmapToo) {
  ClockBitmap owner;
  ASSERT_TRUE(owner.ensure({10, 10}));
  const HGDIOBJ old = GetCurrentObject(owner.dc(), OBJ_BITMAP);
  EXPECT_FALSE(owner.ensure({1 << 20, 1 << 20}));
  EXPECT_EQ(owner.size(), Size{});
  EXPECT_NE(GetCurrentObject(owner.dc(), OBJ_BITMAP), old);
  EXPECT_EQ(GetObjectType(old), 0U);
}

TEST(ClockBitmapTest, ItsEndFreesBitmapAndContext) {
  HDC context = nullptr;
  HGDIOBJ bitmap = nullptr;
  {
    ClockBitmap owner;
    ASSERT_TRUE(owner.ensure({10, 10}));
    context = owner.dc();
    bitmap = GetCurrentObject(context, OBJ_BITMAP);
  }
  EXPECT_EQ(GetObjectType(context), 0U);
  EXPECT_EQ(GetObjectType(bitmap), 0U);
}

/// How many others hold the loaded font of that family in bold.
ULONG holdersOfFont(const wchar_t* family) {
  ComRef<IDWriteFactory> fonts;
  EXPECT_EQ(DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                reinterpret_cast<IUnknown**>(fonts.put())),
            S_OK);
  ComRef<IDWriteFontCollection> collection;
  EXPECT_EQ(fonts->GetSystemFontCollection(collection.put(), FALSE), S_OK);
  UINT32 index = 0;
  BOOL exists = FALSE;
  EXPECT_EQ(collection->FindFamilyName(family, &index, &exists), S_OK);
  EXPECT_TRUE(exists);
  ComRef<IDWriteFontFamily> fontFamily;
  EXPECT_EQ(collection->GetFontFamily(index, fontFamily.put()), S_OK);
  ComRef<IDWriteFont> font;
  EXPECT_EQ(fontFamily->GetFirstMatchingFont(DWRITE_FONT_WEIGHT_BOLD, DWRITE_FONT_STRETCH_NORMAL,
                                             DWRITE_FONT_STYLE_NORMAL, font.put()),
            S_OK);
  IDWriteFontFace* face = nullptr;
  EXPECT_EQ(font->CreateFontFace(&face), S_OK);
  return face->Release();
}

TEST_F(ClockPainterTest, TheFontStaysLoadedFromOnePaintToTheNext) {
  ClockPainterWin own;
  ASSERT_TRUE(own.createFactories());
  picture.text = u"15:00";
  const ULONG before = holdersOfFont(L"Arial");
  ASSERT_TRUE(own.renderBitmap(picture, kDefaultClockUnits, 96));
  EXPECT_GT(holdersOfFont(L"Arial"), before);
}

}  // namespace
}  // namespace mrl
