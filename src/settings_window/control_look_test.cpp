#include "settings_window/control_look.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"

namespace mrl {
namespace {

constexpr int kDpi = 96;

/// The shape of that kind at `index`, counted from 0. Fails the test if there is none.
template <class Kind>
Kind nth(const Drawing& drawing, int index = 0) {
  for (const Shape& shape : drawing) {
    const Kind* found = std::get_if<Kind>(&shape);
    if (found && index-- == 0) return *found;
  }
  ADD_FAILURE() << "no such shape";
  return {};
}

template <class Kind>
bool has(const Drawing& drawing) {
  return std::ranges::any_of(
      drawing, [](const Shape& shape) { return std::holds_alternative<Kind>(shape); });
}

// The palette and the fonts.

TEST(PaletteTest, HasTheseColours) {
  EXPECT_EQ(kInk, 0x1E2B42U);
  EXPECT_EQ(kMuted, 0x707E94U);
  EXPECT_EQ(kAccent, 0x226BFAU);
  EXPECT_EQ(kAccentHover, 0x195CE7U);
  EXPECT_EQ(kAccentDown, 0x1650CBU);
  EXPECT_EQ(kSelectFill, 0xE8F1FFU);
  EXPECT_EQ(kPageFill, 0xF5F7FBU);
  EXPECT_EQ(kReadOnlyFill, 0xF6F8FCU);
  EXPECT_EQ(kHairline, 0xDCE3EDU);
  EXPECT_EQ(kCardLine, 0xE6EBF3U);
  EXPECT_EQ(kWarnText, 0xA06812U);
  EXPECT_EQ(kInvalidLine, 0xCC424AU);
  EXPECT_EQ(kHostDark, 0x273346U);
  EXPECT_EQ(kHostLight, 0xEEF3F9U);
}

struct TypefaceRow {
  Face face;
  std::u16string family;
  int units;
  int weight;
};
class TypefaceTest : public testing::TestWithParam<TypefaceRow> {};

TEST_P(TypefaceTest, HasThisFamilySizeAndWeight) {
  const Typeface& typeface = kTypefaces[static_cast<size_t>(GetParam().face)];
  EXPECT_EQ(typeface.family, GetParam().family);
  EXPECT_EQ(typeface.units, GetParam().units);
  EXPECT_EQ(typeface.weight, GetParam().weight);
}

INSTANTIATE_TEST_SUITE_P(Table, TypefaceTest,
                         testing::Values(TypefaceRow{Face::Body, u"Segoe UI", 14, 400},
                                         TypefaceRow{Face::BodyStrong, u"Segoe UI", 14, 600},
                                         TypefaceRow{Face::Small, u"Segoe UI", 12, 400},
                                         TypefaceRow{Face::PageTitle, u"Segoe UI", 26, 600},
                                         TypefaceRow{Face::SectionTitle, u"Segoe UI", 17, 600},
                                         TypefaceRow{Face::Digits, u"Consolas", 25, 600}));

std::set<int> idsWith(Face face) {
  std::set<int> ids;
  for (const Control& control : allControls()) {
    if (faceOf(control.id) == face) ids.insert(control.id);
  }
  return ids;
}

TEST(FaceOfTest, OnlyTheTimersLineIsStrong) { EXPECT_EQ(idsWith(Face::BodyStrong), std::set{277}); }

TEST(FaceOfTest, TheTitlesOfTheCardsAreLarge) {
  EXPECT_EQ(idsWith(Face::SectionTitle),
            (std::set{600, 604, 610, 630, 633, 640, 650, 652, 653, 655, 656}));
}

TEST(FaceOfTest, CaptionsAndTheStatusLineAreSmall) {
  EXPECT_EQ(idsWith(Face::Small),
            (std::set{601, 602, 603, 605, 606, 607, 612, 613, 614, 615, 616, 617, 618,
                      619, 620, 631, 632, 634, 635, 641, 642, 643, 651, 281, 282, 226}));
}

TEST(FaceOfTest, MinutesAndSecondsAreDigits) {
  EXPECT_EQ(idsWith(Face::Digits), (std::set{241, 242}));
}

TEST(FaceOfTest, EveryOtherControlHasTheBodysFont) {
  EXPECT_EQ(faceOf(kTabs), Face::Body);
  EXPECT_EQ(faceOf(kFolderBox), Face::Body);
  EXPECT_EQ(faceOf(999), Face::Body);
}

TEST(RowHeightTest, ACombosRowIsThirtyTwoAndAFilesFiftyFourHigh) {
  EXPECT_EQ(kComboRowUnits, 32);
  EXPECT_EQ(kFileRowUnits, 54);
}

// Push buttons.

ControlState button(int id = kCloseButton) { return {.id = id, .size = {100, 40}, .text = u"Go"}; }
RoundedRect buttonShape(const ControlState& state, int dpi = kDpi) {
  return nth<RoundedRect>(drawControl(state, dpi));
}

struct ButtonRow {
  std::set<int> ids;
  bool isActive;
  uint32_t rest, hover, pressed;
  std::optional<uint32_t> outline;  // empty: same as the fill
  uint32_t text;
  Face face;
};
class ButtonKindTest : public testing::TestWithParam<ButtonRow> {
 protected:
  void expectFill(ControlState state, uint32_t fill) {
    for (const int id : GetParam().ids) {
      state.id = id;
      state.isActive = GetParam().isActive;
      const RoundedRect shape = buttonShape(state);
      EXPECT_EQ(shape.fill, fill) << id;
      EXPECT_EQ(shape.outline, GetParam().outline.value_or(fill)) << id;
      EXPECT_EQ(shape.outlineWidth, 1) << id;
    }
  }
};

TEST_P(ButtonKindTest, AtRestHasItsFillAndOutline) { expectFill(button(), GetParam().rest); }

TEST_P(ButtonKindTest, UnderTheMouseChangesItsFill) {
  ControlState state = button();
  state.isHovered = true;
  expectFill(state, GetParam().hover);
}

TEST_P(ButtonKindTest, PressedChangesItsFillOverTheHover) {
  ControlState state = button();
  state.isHovered = state.isPressed = true;
  expectFill(state, GetParam().pressed);
}

TEST_P(ButtonKindTest, HasItsTextsColourAndFont) {
  for (const int id : GetParam().ids) {
    ControlState state = button(id);
    state.isActive = GetParam().isActive;
    const Label label = nth<Label>(drawControl(state, kDpi));
    EXPECT_EQ(label.colour, GetParam().text) << id;
    EXPECT_EQ(label.face, GetParam().face) << id;
  }
}

const ButtonRow kGreenRow{{278}, false, 0x0D806A, 0x0B705E, 0x095D4E, {}, kWhite, Face::BodyStrong};
const ButtonRow kPrimaryRow{{200, 512, 215, 216, 217, 221},
                            false,
                            kAccent,
                            kAccentHover,
                            kAccentDown,
                            {},
                            kWhite,
                            Face::BodyStrong};
const ButtonRow kDangerRow{{275, 220}, false,    0xFFF8F8, 0xFCEFEF,
                           0xF7E0E0,   0xE1BEBE, 0x9C343A, Face::Body};
const ButtonRow kDangerOnRow{{221},    true,     0xFFF8F8, 0xFCEFEF,
                             0xF7E0E0, 0xE1BEBE, 0x9C343A, Face::Body};
const ButtonRow kCautionRow{{279},    false,    0xFFFAF0, 0xFDF5E5,
                            0xF6E8CF, 0xDEC9A0, 0x7E5314, Face::Body};
const ButtonRow kCautionOnRow{{278},    true,     0xFFFAF0, 0xFDF5E5,
                              0xF6E8CF, 0xDEC9A0, 0x7E5314, Face::Body};
const ButtonRow kNormalRow{{201, 110, 212, 218, 219, 225, 229, 253, 272, 273, 274, 407, 427, 511},
                           false,
                           kWhite,
                           0xF5F8FD,
                           0xE8EEF7,
                           kHairline,
                           kInk,
                           Face::Body};
INSTANTIATE_TEST_SUITE_P(Table, ButtonKindTest,
                         testing::Values(kGreenRow, kPrimaryRow, kDangerRow, kDangerOnRow,
                                         kCautionRow, kCautionOnRow, kNormalRow));

TEST(ButtonLookTest, DisabledIsPaleWhateverItsKindAndTheMouse) {
  for (const int id : {kCloseButton, kToggleButton, kExitShowButton}) {
    ControlState state = button(id);
    state.isEnabled = false;
    state.isHovered = true;
    EXPECT_EQ(buttonShape(state).fill, 0xF5F7FAU);
    state.isPressed = true;
    const RoundedRect shape = buttonShape(state);
    EXPECT_EQ(shape.fill, 0xF5F7FAU);
    EXPECT_EQ(shape.outline, 0xE8ECF2U);
    EXPECT_EQ(nth<Label>(drawControl(state, kDpi)).colour, 0xA5AEBBU);
  }
}

TEST(ButtonLookTest, FocusedHasAThickRing) {
  ControlState state = button(kExitShowButton);
  state.isFocused = true;
  EXPECT_EQ(buttonShape(state).outline, kAccent);
  EXPECT_EQ(buttonShape(state).outlineWidth, 2);
}

TEST(ButtonLookTest, ItsShapeLiesOnePixelWithinAWhiteClient) {
  EXPECT_EQ(drawControl(button(), kDpi).front(), Shape(Area{{0, 0, 100, 40}, kWhite}));
  EXPECT_EQ(buttonShape(button()).rect, (Rect{1, 1, 99, 39}));
  EXPECT_EQ(buttonShape(button()).radius, 7);
}

TEST(ButtonLookTest, ItsTextIsCentredBetweenMarginsOfEight) {
  EXPECT_EQ(nth<Label>(drawControl(button(), kDpi)),
            (Label{u"Go", {8, 0, 92, 40}, Face::Body, kInk, true}));
}

TEST(ButtonLookTest, AtTwiceTheResolutionAllButTheThinOutlineGrows) {
  ControlState state = button();
  EXPECT_EQ(buttonShape(state, 192).rect, (Rect{1, 1, 99, 39}));
  EXPECT_EQ(buttonShape(state, 192).radius, 14);
  EXPECT_EQ(buttonShape(state, 192).outlineWidth, 1);
  EXPECT_EQ(nth<Label>(drawControl(state, 192)).rect, (Rect{16, 0, 84, 40}));
  state.isFocused = true;
  EXPECT_EQ(buttonShape(state, 192).outlineWidth, 4);
}

// Colour pickers.

ControlState picker(const std::u16string& text) {
  ControlState state = button(kPickForegroundButton);
  state.size = {42, 40};
  state.colourText = text;
  return state;
}
uint32_t swatch(const std::u16string& text) {
  return nth<RoundedRect>(drawControl(picker(text), kDpi), 1).fill;
}

TEST(ColourPickerTest, ReadsTheBoxBesideIt) {
  EXPECT_EQ(colourBoxOf(267), 256);
  EXPECT_EQ(colourBoxOf(268), 257);
  EXPECT_EQ(colourBoxOf(269), 258);
  EXPECT_EQ(colourBoxOf(266), std::nullopt);
  EXPECT_EQ(colourBoxOf(kPickSoundButton), std::nullopt);
}

TEST(ColourPickerTest, ShowsItsColourWithoutAnOutlineInPlaceOfItsText) {
  const Drawing drawing = drawControl(picker(u"#0080FF"), kDpi);
  EXPECT_EQ(nth<RoundedRect>(drawing).rect, (Rect{1, 1, 41, 39}));
  EXPECT_EQ(drawing.back(), Shape(RoundedRect{{9, 9, 33, 31}, 4, 0x0080FF, {}}));
  EXPECT_FALSE(has<Label>(drawing));
}

TEST(ColourPickerTest, AtTwiceTheResolutionInsetAndCornersGrow) {
  const RoundedRect shape = nth<RoundedRect>(drawControl(picker(u"#000000"), 192), 1);
  EXPECT_EQ(shape.rect, (Rect{18, 18, 24, 22}));
  EXPECT_EQ(shape.radius, 8);
}

TEST(ColourPickerTest, ShowsAsMuchOfABrokenTextAsReadsAsANumber) {
  EXPECT_EQ(swatch(u"#12z456"), 0x12U);
  EXPECT_EQ(swatch(u"#12"), 0x12U);
  EXPECT_EQ(swatch(u"x0080FF"), 0x0080FFU);
  EXPECT_EQ(swatch(u"#AA123456"), 0x123456U);
  EXPECT_EQ(swatch(u"#123456789"), 0xFFFFFFU);
  EXPECT_EQ(swatch(u"#zz"), 0U);
  EXPECT_EQ(swatch(u"#"), 0U);
  EXPECT_EQ(swatch(u""), 0U);
}

// Radio buttons.

ControlState radio(bool isChecked) {
  return {.id = kDownRadio, .size = {128, 42}, .text = u"Down", .isChecked = isChecked};
}

TEST(RadioLookTest, UncheckedIsAWhitePillWithAnEmptyRing) {
  EXPECT_EQ(
      drawControl(radio(false), kDpi),
      (Drawing{Area{{0, 0, 128, 42}, kWhite}, RoundedRect{{0, 0, 128, 42}, 7, kWhite, kHairline, 1},
               Ring{{12, 13, 28, 29}, kMuted, 1},
               Label{u"Down", {38, 0, 128, 42}, Face::Body, kInk}}));
}

TEST(RadioLookTest, CheckedIsFilledAndHasADot) {
  EXPECT_EQ(drawControl(radio(true), kDpi),
            (Drawing{Area{{0, 0, 128, 42}, kWhite},
                     RoundedRect{{0, 0, 128, 42}, 7, kSelectFill, kAccent, 1},
                     Ring{{12, 13, 28, 29}, kAccent, 1}, Disc{{16, 17, 24, 25}, kAccent},
                     Label{u"Down", {38, 0, 128, 42}, Face::Body, kInk}}));
}

TEST(RadioLookTest, UnderTheMouseOnlyAnUncheckedOneChanges) {
  ControlState state = radio(false);
  state.isHovered = true;
  EXPECT_EQ(nth<RoundedRect>(drawControl(state, kDpi)).fill, 0xF8FAFDU);
  state.isChecked = true;
  EXPECT_EQ(nth<RoundedRect>(drawControl(state, kDpi)).fill, kSelectFill);
}

TEST(RadioLookTest, DisabledHasAFaintRingAMutedDotAndMutedText) {
  ControlState state = radio(true);
  state.isEnabled = false;
  const Drawing drawing = drawControl(state, kDpi);
  EXPECT_EQ(nth<Ring>(drawing).colour, kHairline);
  EXPECT_EQ(nth<Disc>(drawing).colour, 0x707E94U);
  EXPECT_EQ(nth<Label>(drawing).colour, kMuted);
}

TEST(RadioLookTest, DisabledHasAFaintRingUncheckedToo) {
  ControlState state = radio(false);
  state.isEnabled = false;
  EXPECT_EQ(nth<Ring>(drawControl(state, kDpi)).colour, kHairline);
}

TEST(RadioLookTest, AtTwiceTheResolutionTheRingGrowsAndTheOutlineStaysAtOne) {
  ControlState state = radio(true);
  state.size = {256, 84};
  const Drawing drawing = drawControl(state, 192);
  EXPECT_EQ(nth<RoundedRect>(drawing).outlineWidth, 1);
  EXPECT_EQ(nth<RoundedRect>(drawing).radius, 14);
  EXPECT_EQ(nth<Ring>(drawing), (Ring{{24, 26, 56, 58}, kAccent, 2}));
  EXPECT_EQ(nth<Disc>(drawing).box, (Rect{32, 34, 48, 50}));
  EXPECT_EQ(nth<Label>(drawing).rect.left, 76);
}

// Switches.

ControlState check(bool isChecked) {
  return {.id = kBlinkCheck, .size = {300, 34}, .text = u"Blink", .isChecked = isChecked};
}

TEST(SwitchLookTest, OnHasItsKnobAtTheRightOfAnAccentTrack) {
  EXPECT_EQ(drawControl(check(true), kDpi),
            (Drawing{Area{{0, 0, 300, 34}, kWhite}, RoundedRect{{264, 7, 298, 27}, 10, kAccent, {}},
                     Disc{{281, 10, 295, 24}, kWhite},
                     Label{u"Blink", {0, 0, 252, 34}, Face::Body, kInk}}));
}

TEST(SwitchLookTest, OffHasItsKnobAtTheLeftOfAGreyTrack) {
  const Drawing drawing = drawControl(check(false), kDpi);
  EXPECT_EQ(nth<RoundedRect>(drawing).fill, 0xD7DFEBU);
  EXPECT_EQ(nth<Disc>(drawing).box, (Rect{267, 10, 281, 24}));
}

TEST(SwitchLookTest, DisabledKeepsItsPositionAndChangesOnlyItsColours) {
  for (const bool isChecked : {false, true}) {
    ControlState state = check(isChecked);
    const Drawing enabled = drawControl(state, kDpi);
    state.isEnabled = false;
    const Drawing disabled = drawControl(state, kDpi);
    EXPECT_EQ(nth<RoundedRect>(disabled).fill, 0xE9EDF3U);
    EXPECT_EQ(nth<Label>(disabled).colour, 0x9EA8B8U);
    EXPECT_EQ(nth<RoundedRect>(disabled).rect, nth<RoundedRect>(enabled).rect);
    EXPECT_EQ(nth<Disc>(disabled), nth<Disc>(enabled));
  }
}

TEST(SwitchLookTest, FocusedHasTheSystemsMarkTwoWithinItsClient) {
  ControlState state = check(false);
  EXPECT_FALSE(has<FocusMark>(drawControl(state, kDpi)));
  state.isFocused = true;
  EXPECT_EQ(nth<FocusMark>(drawControl(state, kDpi)).rect, (Rect{2, 2, 298, 32}));
  EXPECT_EQ(nth<FocusMark>(drawControl(state, 192)).rect, (Rect{4, 4, 296, 30}));
}

TEST(SwitchLookTest, AtTwiceTheResolutionAllOfItGrows) {
  ControlState state = check(true);
  state.size = {600, 68};
  const Drawing drawing = drawControl(state, 192);
  EXPECT_EQ(nth<RoundedRect>(drawing).rect, (Rect{528, 14, 596, 54}));
  EXPECT_EQ(nth<RoundedRect>(drawing).radius, 20);
  EXPECT_EQ(nth<Disc>(drawing).box, (Rect{562, 20, 590, 48}));
  EXPECT_EQ(nth<Label>(drawing).rect.right, 504);
}

// Sections.

ControlState section(int index, bool isActive) {
  return {.id = kFirstSection + index, .size = {160, 46}, .text = u"Look", .isActive = isActive};
}

TEST(SectionLookTest, OfTheShownPageIsFilledAndStrong) {
  EXPECT_EQ(
      drawControl(section(3, true), kDpi),
      (Drawing{Area{{0, 0, 160, 46}, kWhite}, RoundedRect{{0, 0, 160, 46}, 8, kSelectFill, {}},
               Glyph{{14, 12, 36, 34}, 3, kAccent},
               Label{u"Look", {48, 0, 150, 46}, Face::BodyStrong, kAccent}}));
}

TEST(SectionLookTest, OfAnotherPageIsWhiteAndMuted) {
  EXPECT_EQ(drawControl(section(1, false), kDpi),
            (Drawing{Area{{0, 0, 160, 46}, kWhite}, RoundedRect{{0, 0, 160, 46}, 8, kWhite, {}},
                     Glyph{{14, 12, 36, 34}, 1, kMuted},
                     Label{u"Look", {48, 0, 150, 46}, Face::Body, 0x4E5E75}}));
}

TEST(SectionLookTest, UnderTheMouseOnlyAnotherPagesChanges) {
  ControlState state = section(0, false);
  state.isHovered = true;
  EXPECT_EQ(nth<RoundedRect>(drawControl(state, kDpi)).fill, 0xF3F6FBU);
  state.isActive = true;
  EXPECT_EQ(nth<RoundedRect>(drawControl(state, kDpi)).fill, kSelectFill);
}

TEST(SectionLookTest, FocusedHasAThinOutlineAtAnyResolution) {
  ControlState state = section(0, false);
  state.isFocused = true;
  for (const int dpi : {96, 192}) {
    EXPECT_EQ(nth<RoundedRect>(drawControl(state, dpi)).outline, kAccent);
    EXPECT_EQ(nth<RoundedRect>(drawControl(state, dpi)).outlineWidth, 1);
  }
}

TEST(SectionLookTest, AtTwiceTheResolutionGlyphAndTextGrow) {
  ControlState state = section(2, true);
  state.size = {320, 92};
  const Drawing drawing = drawControl(state, 192);
  EXPECT_EQ(nth<RoundedRect>(drawing).radius, 16);
  EXPECT_EQ(nth<Glyph>(drawing).square, (Rect{28, 24, 72, 68}));
  EXPECT_EQ(nth<Label>(drawing).rect, (Rect{96, 0, 300, 92}));
}

// Combos.

ControlState combo() { return {.id = kShapeCombo, .size = {144, 38}, .text = u"Row"}; }

TEST(ComboLookTest, IsAWhiteFrameWithItsTextAndAChevron) {
  EXPECT_EQ(
      drawControl(combo(), kDpi),
      (Drawing{Area{{0, 0, 144, 38}, kWhite}, RoundedRect{{0, 0, 144, 38}, 7, kWhite, kHairline, 1},
               Label{u"Row", {12, 0, 112, 38}, Face::Body, kInk},
               Line{{122, 17}, {126, 21}, kMuted, 1}, Line{{126, 21}, {130, 17}, kMuted, 1}}));
}

TEST(ComboLookTest, FocusedHasAThickRing) {
  ControlState state = combo();
  state.isFocused = true;
  EXPECT_EQ(nth<RoundedRect>(drawControl(state, kDpi)).outline, kAccent);
  EXPECT_EQ(nth<RoundedRect>(drawControl(state, kDpi)).outlineWidth, 2);
  EXPECT_EQ(nth<RoundedRect>(drawControl(state, 192)).outlineWidth, 4);
}

TEST(ComboLookTest, DisabledHasMutedText) {
  ControlState state = combo();
  state.isEnabled = false;
  EXPECT_EQ(nth<Label>(drawControl(state, kDpi)).colour, kMuted);
}

TEST(ComboLookTest, AtTwiceTheResolutionTheChevronGrowsAndTheOutlineStaysAtOne) {
  ControlState state = combo();
  state.size = {288, 76};
  const Drawing drawing = drawControl(state, 192);
  EXPECT_EQ(nth<RoundedRect>(drawing).outlineWidth, 1);
  EXPECT_EQ(nth<Line>(drawing), (Line{{244, 34}, {252, 42}, kMuted, 2}));
  EXPECT_EQ(nth<Line>(drawing, 1), (Line{{252, 42}, {260, 34}, kMuted, 2}));
}

// Edit boxes.

RoundedRect frame(const BoxState& box, int dpi = kDpi) {
  return nth<RoundedRect>(drawBoxFrame(box, dpi));
}

TEST(BoxFrameTest, IsAThinLineOnWhite) {
  EXPECT_EQ(drawBoxFrame({.size = {100, 38}}, kDpi),
            (Drawing{Area{{0, 0, 100, 38}, kWhite},
                     RoundedRect{{0, 0, 100, 38}, 7, kWhite, kHairline, 1}}));
}

TEST(BoxFrameTest, AReadOnlyBoxIsTinted) {
  EXPECT_EQ(frame({.size = {100, 38}, .isReadOnly = true}).fill, kReadOnlyFill);
}

TEST(BoxFrameTest, TheFocusIsAThickRing) {
  EXPECT_EQ(frame({.size = {100, 38}, .isFocused = true}).outline, kAccent);
  EXPECT_EQ(frame({.size = {100, 38}, .isFocused = true}).outlineWidth, 2);
}

TEST(BoxFrameTest, InvalidInputIsAThickRedRing) {
  EXPECT_EQ(frame({.size = {100, 38}, .isInvalid = true}).outline, kInvalidLine);
  EXPECT_EQ(frame({.size = {100, 38}, .isInvalid = true}).outlineWidth, 2);
}

TEST(BoxFrameTest, RedWinsOverTheFocus) {
  const RoundedRect both = frame({.size = {100, 38}, .isInvalid = true, .isFocused = true});
  EXPECT_EQ(both.outline, kInvalidLine);
  EXPECT_EQ(both.outlineWidth, 2);
}

TEST(BoxFrameTest, AtTwiceTheResolutionOnlyTheThinLineStays) {
  EXPECT_EQ(frame({.size = {100, 38}}, 192).outlineWidth, 1);
  EXPECT_EQ(frame({.size = {100, 38}}, 192).radius, 14);
  EXPECT_EQ(frame({.size = {100, 38}, .isInvalid = true}, 192).outlineWidth, 4);
}

TEST(WithinBoxFrameTest, ATextStandsTenFromTheSidesSevenFromTheTopAndSixFromTheBottom) {
  EXPECT_EQ(withinBoxFrame({0, 0, 100, 38}, kDpi), (Rect{10, 7, 90, 32}));
  EXPECT_EQ(withinBoxFrame({5, 50, 205, 126}, 192), (Rect{25, 64, 185, 114}));
}

TEST(WithinBoxFrameTest, ANarrowBoxKeepsItsWidthAndALowOneItsHeight) {
  EXPECT_EQ(withinBoxFrame({0, 0, 40, 38}, kDpi), (Rect{0, 7, 40, 32}));
  EXPECT_EQ(withinBoxFrame({0, 0, 41, 38}, kDpi), (Rect{10, 7, 31, 32}));
  EXPECT_EQ(withinBoxFrame({0, 0, 100, 26}, kDpi), (Rect{10, 0, 90, 26}));
  EXPECT_EQ(withinBoxFrame({0, 0, 100, 27}, kDpi), (Rect{10, 7, 90, 21}));
  EXPECT_EQ(withinBoxFrame({0, 0, 80, 52}, 192), (Rect{0, 0, 80, 52}));
}

// The colours of what the system paints.

TEST(ChildColoursTest, ABoxIsWhiteOrTintedWhenReadOnly) {
  EXPECT_EQ(childColours(ColourAsker::Box, {}), (ChildColours{kInk, kWhite}));
  EXPECT_EQ(childColours(ColourAsker::Box, {.isReadOnly = true}),
            (ChildColours{kInk, kReadOnlyFill}));
}

TEST(ChildColoursTest, ADisabledBoxOrListHasMutedText) {
  EXPECT_EQ(childColours(ColourAsker::Box, {.isEnabled = false}), (ChildColours{kMuted, kWhite}));
  EXPECT_EQ(childColours(ColourAsker::List, {.isEnabled = false}), (ChildColours{kMuted, kWhite}));
}

TEST(ChildColoursTest, AListIsWhite) {
  EXPECT_EQ(childColours(ColourAsker::List, {}), (ChildColours{kInk, kWhite}));
}

TEST(ChildColoursTest, AScrollBarHasThePagesColour) {
  EXPECT_EQ(childColours(ColourAsker::ScrollBar, {}).fill, kPageFill);
}

TEST(ChildColoursTest, TheStatusLineWarnsWhileInputIsUnsaved) {
  EXPECT_EQ(childColours(ColourAsker::Static, {.id = kStatusText}),
            (ChildColours{kMuted, kWhite, true}));
  EXPECT_EQ(childColours(ColourAsker::Static, {.id = kStatusText, .hasUnsavedInput = true}),
            (ChildColours{kWarnText, kWhite, true}));
}

TEST(ChildColoursTest, AChildThatIsNoControlOfOursLooksLikeAText) {
  EXPECT_EQ(childColours(ColourAsker::Static, {.id = -1}), (ChildColours{kMuted, kWhite, true}));
}

TEST(ChildColoursTest, OnlyTheTimersLineAndTheTitlesAreInInk) {
  std::set<int> inked;
  for (const Control& control : allControls()) {
    const ChildState state{.id = control.id, .hasUnsavedInput = control.id != kStatusText};
    const ChildColours colours = childColours(ColourAsker::Static, state);
    EXPECT_TRUE(colours.isTransparent);
    if (colours.text == kInk) inked.insert(control.id);
  }
  EXPECT_EQ(inked, (std::set{277, 600, 604, 610, 630, 633, 640, 650, 652, 653, 655, 656}));
}

}  // namespace
}  // namespace mrl
