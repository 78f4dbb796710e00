// The appearance of the clock, with an arithmetic fake of the font engine.
#include "overlay/clock_drawing.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

/// Every UTF-16 unit of the text is `widthPerUnit` times the size wide.
class TextMeasurerFake : public TextMeasurer {
 public:
  std::optional<float> widthOf(const ClockText& text) override {
    measured.push_back(text);
    if (fails) return std::nullopt;
    return static_cast<float>(text.text.size()) * widthPerUnit * text.size;
  }

  bool fails = false;
  float widthPerUnit = 0.5F;
  std::vector<ClockText> measured;
};

class ClockDrawingTest : public testing::Test {
 protected:
  ClockDrawing draw() { return drawClock(picture, width, height, measurer); }

  Settings settings;
  ClockPicture picture{.settings = settings, .text = u"15:00"};
  float width = 183;
  float height = 82;
  TextMeasurerFake measurer;
};

constexpr ColourF kBackground{0, 128.0F / 255, 1, 0.8F};  // the default, at its opacity
constexpr ColourF kAlert{192.0F / 255, 57.0F / 255, 43.0F / 255, 0.8F};
constexpr ColourF kForeground{250.0F / 255, 252.0F / 255, 1, 1};

TEST(ColourTest, AChannelIsItsByteOver255) {
  EXPECT_EQ(colourFrom(0x0080FF, 0.5F), (ColourF{0, 128.0F / 255, 1, 0.5F}));
}

// The background under the shape.

TEST_F(ClockDrawingTest, TheClockClearsToFullyTransparent) {
  EXPECT_EQ(draw().clear, (ColourF{0, 0, 0, 0}));
}

TEST_F(ClockDrawingTest, ATextOnlyClockClearsToFullyTransparentToo) {
  settings.transparent = true;
  EXPECT_EQ(draw().clear, (ColourF{0, 0, 0, 0}));
}

TEST_F(ClockDrawingTest, ThePreviewClearsToAnOpaqueLightGround) {
  picture.isPreview = true;
  EXPECT_EQ(draw().clear, colourFrom(0xEEF3F9, 1));
}

TEST_F(ClockDrawingTest, ATextOnlyPreviewFillsItsShapeAsTheClockDoes) {
  settings.transparent = true;
  const ColourF onTheClock = draw().fill;
  picture.isPreview = true;
  EXPECT_EQ(draw().fill, onTheClock);
  EXPECT_LT(onTheClock.alpha, 0.01F);
}

TEST_F(ClockDrawingTest, ATextOnlyPreviewClearsToAnOpaqueDarkGround) {
  picture.isPreview = true;
  settings.transparent = true;
  EXPECT_EQ(draw().clear, colourFrom(0x273346, 1));
}

// The shape.

TEST_F(ClockDrawingTest, ShapeZeroIsARectangle) {
  settings.shape = 0;
  EXPECT_EQ(draw().shape, ClockShape::Rectangle);
}

TEST_F(ClockDrawingTest, ShapeOneIsARoundedRectangleOfRadius8) {
  settings.shape = 1;
  EXPECT_EQ(draw().shape, ClockShape::Rounded);
  EXPECT_EQ(kCornerRadius, 8);
}

TEST_F(ClockDrawingTest, ShapeTwoIsAnEllipse) {
  settings.shape = 2;
  EXPECT_EQ(draw().shape, ClockShape::Ellipse);
}

TEST_F(ClockDrawingTest, AnyOtherShapeIsARectangle) {
  settings.shape = 3;
  EXPECT_EQ(draw().shape, ClockShape::Rectangle);
  settings.shape = 0xFFFFFFFF;
  EXPECT_EQ(draw().shape, ClockShape::Rectangle);
}

TEST_F(ClockDrawingTest, TheShapeFillsTheWindow) { EXPECT_EQ(draw().box, (RectF{0, 0, 183, 82})); }

// Colours by state.

TEST_F(ClockDrawingTest, NormallyTheBackgroundStandsAtItsOpacity) {
  const ClockDrawing drawing = draw();
  EXPECT_EQ(drawing.fill, kBackground);
  EXPECT_EQ(drawing.text->colour, kForeground);
}

TEST_F(ClockDrawingTest, TextOnlyLeavesABackgroundThatTheEyeCantSee) {
  settings.transparent = true;
  const ClockDrawing drawing = draw();
  EXPECT_EQ(drawing.fill, colourFrom(settings.background, 0.004F));
  EXPECT_EQ(drawing.text->colour, kForeground);
}

TEST_F(ClockDrawingTest, TheBrightPhaseShowsTheAlertColourAtTheOpacity) {
  picture.blinkOn = true;
  const ClockDrawing drawing = draw();
  EXPECT_EQ(drawing.fill, kAlert);
  EXPECT_EQ(drawing.text->colour, kForeground);
}

TEST_F(ClockDrawingTest, TheBrightPhaseShowsAFullBackgroundInTextOnlyModeToo) {
  picture.blinkOn = true;
  settings.transparent = true;
  const ClockDrawing drawing = draw();
  EXPECT_EQ(drawing.fill, kAlert);
  EXPECT_EQ(drawing.text->colour, kForeground);
}

TEST_F(ClockDrawingTest, OvertimeIsToldByTheTextAlone) {
  picture.text = u"已超时 00:15";
  const ClockDrawing drawing = draw();
  EXPECT_EQ(drawing.fill, kBackground);
  EXPECT_EQ(drawing.text->colour, kForeground);
  EXPECT_EQ(drawing.text->text, u"已超时 00:15");
}

TEST_F(ClockDrawingTest, OpacityBelow10PaintsAs10) {
  settings.opacity = 9;
  EXPECT_FLOAT_EQ(draw().fill.alpha, 0.1F);
  picture.blinkOn = true;
  EXPECT_FLOAT_EQ(draw().fill.alpha, 0.1F);
}

TEST_F(ClockDrawingTest, OpacityAbove100PaintsAs100) {
  settings.opacity = 101;
  EXPECT_FLOAT_EQ(draw().fill.alpha, 1);
  picture.blinkOn = true;
  EXPECT_FLOAT_EQ(draw().fill.alpha, 1);
}

TEST_F(ClockDrawingTest, TheEndsOfTheOpacityCountAsTheyStand) {
  settings.opacity = 10;
  EXPECT_FLOAT_EQ(draw().fill.alpha, 0.1F);
  settings.opacity = 100;
  EXPECT_FLOAT_EQ(draw().fill.alpha, 1);
}

// The digits.

TEST_F(ClockDrawingTest, AShortTextIsLimitedByTheHeight) {
  EXPECT_FLOAT_EQ(draw().text->size, 82 * 0.72F);
}

TEST_F(ClockDrawingTest, AShortTextIsLimitedByTheWidthOfANarrowWindow) {
  width = 120;
  measurer.widthPerUnit = 0.4F;
  EXPECT_FLOAT_EQ(draw().text->size, 120 * 0.43F);
}

TEST_F(ClockDrawingTest, TheSizeIsAtLeastOne) {
  width = 2;
  height = 1;
  measurer.widthPerUnit = 0;
  EXPECT_EQ(draw().text->size, 1);
}

TEST_F(ClockDrawingTest, AWideTextShrinksToLeave12Units) {
  measurer.widthPerUnit = 1;
  EXPECT_FLOAT_EQ(draw().text->size, (183 - 12) / 5.0F);
}

TEST_F(ClockDrawingTest, AWideTextNeverShrinksBelowSizeOne) {
  measurer.widthPerUnit = 1000;
  EXPECT_EQ(draw().text->size, 1);
}

TEST_F(ClockDrawingTest, ATextThatJustFitsIsLeftAlone) {
  measurer.widthPerUnit = (183 - 12) / (82 * 0.72F) / 5;
  EXPECT_FLOAT_EQ(draw().text->size, 82 * 0.72F);
}

TEST_F(ClockDrawingTest, TheTextIsMeasuredOnceAtItsFirstSize) {
  measurer.widthPerUnit = 1;
  (void)draw();
  ASSERT_EQ(measurer.measured.size(), 1U);
  EXPECT_FLOAT_EQ(measurer.measured[0].size, 82 * 0.72F);
}

TEST_F(ClockDrawingTest, FamilyWeightAndTextPassAsTheyStand) {
  settings.fontName = u" Some Family ";
  settings.fontWeight = 999;
  const ClockDrawing drawing = draw();
  EXPECT_EQ(drawing.text->family, u" Some Family ");
  EXPECT_EQ(drawing.text->weight, 999U);
  EXPECT_EQ(drawing.text->text, u"15:00");
  EXPECT_EQ(measurer.measured[0].family, u" Some Family ");
  EXPECT_EQ(measurer.measured[0].weight, 999U);
}

TEST_F(ClockDrawingTest, ALongOvertimeTextFitsTheSmallestWindow) {
  width = 120;
  height = 50;
  picture.text = u"已超时 01:40:00";
  measurer.widthPerUnit = 0.6F;
  const ClockDrawing drawing = draw();
  EXPECT_NEAR(*measurer.widthOf(*drawing.text), 120 - 12, 0.001);
}

TEST_F(ClockDrawingTest, AFontThatCantBeHadLeavesShapeAndHandles) {
  measurer.fails = true;
  picture.handles = true;
  const ClockDrawing drawing = draw();
  EXPECT_FALSE(drawing.text);
  EXPECT_EQ(drawing.fill, kBackground);
  EXPECT_EQ(drawing.handles.size(), 4U);
}

// The handles.

const std::vector<RectF> kFourCorners{
    {0, 0, 8, 8}, {175, 0, 183, 8}, {0, 74, 8, 82}, {175, 74, 183, 82}};

TEST_F(ClockDrawingTest, AClockHasNoHandles) { EXPECT_TRUE(draw().handles.empty()); }

TEST_F(ClockDrawingTest, ResizeModePutsAHandleIntoEachCorner) {
  picture.handles = true;
  EXPECT_EQ(draw().handles, kFourCorners);
}

TEST_F(ClockDrawingTest, APreviewHasItsHandlesAlways) {
  picture.isPreview = true;
  EXPECT_EQ(draw().handles, kFourCorners);
}

TEST(HandleTest, TheHandlesAreOpaqueWhite) { EXPECT_EQ(kHandleColour, colourFrom(0xFFFFFF, 1)); }

// The blink.

class BlinkTest : public testing::Test {
 protected:
  bool onAt(uint64_t nowMs) const { return isBlinkOn(blink, settings, nowMs); }

  Settings settings{.blinkOn = 300, .blinkOff = 700};
  Blink blink{.active = true, .startMs = 5000};
};

TEST_F(BlinkTest, NothingBlinksUnlessActive) {
  blink.active = false;
  EXPECT_FALSE(onAt(5000));
}

TEST_F(BlinkTest, TheBrightPhaseComesFirstAndLastsItsTime) {
  EXPECT_TRUE(onAt(5000));
  EXPECT_TRUE(onAt(5299));
  EXPECT_FALSE(onAt(5300));
}

TEST_F(BlinkTest, TheDarkPhaseLastsItsTimeAndThenItIsBrightAgain) {
  EXPECT_FALSE(onAt(5999));
  EXPECT_TRUE(onAt(6000));
  EXPECT_FALSE(onAt(6300));
}

TEST_F(BlinkTest, TheEndIsDarkEvenInABrightPhase) {
  blink.endMs = 6100;
  EXPECT_TRUE(onAt(6099));
  EXPECT_FALSE(onAt(6100));
  EXPECT_FALSE(onAt(7000));
}

TEST_F(BlinkTest, WithNoEndItGoesOn) { EXPECT_TRUE(onAt(5000 + 1000 * 1000)); }

TEST_F(BlinkTest, AClockThatWentBackCountsAsTheStart) { EXPECT_TRUE(onAt(4000)); }

// The preview's phases.

TEST(PreviewTest, PhaseZeroShowsTheDurationWhenCountingDown) {
  EXPECT_EQ(previewText({.duration = 900, .down = true}, 0), u"15:00");
}

TEST(PreviewTest, PhaseZeroShowsZeroWhenCountingUp) {
  EXPECT_EQ(previewText({.duration = 900, .down = false}, 0), u"00:00");
}

TEST(PreviewTest, PhaseOneShowsHalfAMinute) { EXPECT_EQ(previewText({}, 1), u"00:30"); }

TEST(PreviewTest, PhaseTwoShowsOvertime) { EXPECT_EQ(previewText({}, 2), u"已超时 00:15"); }

TEST(PreviewTest, AnyOtherPhaseIsTheNormalOne) {
  EXPECT_EQ(previewText({.duration = 60}, 3), u"01:00");
  EXPECT_FALSE(previewBlinkOn({}, 3));
}

TEST(PreviewTest, PhaseZeroIsNeverBright) {
  EXPECT_FALSE(previewBlinkOn({.blink = true, .black = true}, 0));
}

TEST(PreviewTest, PhaseOneIsAlwaysBright) {
  EXPECT_TRUE(previewBlinkOn({.blink = false, .black = false}, 1));
}

TEST(PreviewTest, PhaseTwoIsBrightWithBlink) {
  EXPECT_TRUE(previewBlinkOn({.blink = true, .black = false}, 2));
}

TEST(PreviewTest, PhaseTwoIsBrightWithBlack) {
  EXPECT_TRUE(previewBlinkOn({.blink = false, .black = true}, 2));
}

TEST(PreviewTest, PhaseTwoIsNotBrightWithNeither) {
  EXPECT_FALSE(previewBlinkOn({.blink = false, .black = false}, 2));
}

}  // namespace
}  // namespace mrl
