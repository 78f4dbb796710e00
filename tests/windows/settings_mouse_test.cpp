// The wheel over the real settings window, and the mouse on the corners of its preview.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/wide_win.h"
#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsMouseTest : public SettingsHand {
 protected:
  POINT margin() const {
    RECT seen{};
    GetWindowRect(pane(), &seen);
    return {seen.left + 8, (seen.top + seen.bottom) / 2};
  }
  /// The preview, by a corner.
  bool isHeld() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window(), nullptr), &info) &&
           info.hwndCapture == control(kPreview);
  }
  Point placeOfPreview() const { return {rect(kPreview).left, rect(kPreview).top}; }
  /// Waits until the control has been scrolled to `top`.
  bool comesTo(int id, int top) const {
    return waitUntil([&] { return topOf(id) == top; });
  }
};

TEST_F(SettingsMouseTest, ANotchOfTheWheelMovesThePageAndItsPartsAddUp) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  const int top = topOf(kTimingTitle);
  turnWheelAt(margin(), -WHEEL_DELTA);
  EXPECT_TRUE(comesTo(kTimingTitle, top - scaled(56)));
  for (int i = 0; i < 4; ++i) turnWheelAt(margin(), -WHEEL_DELTA / 4);
  EXPECT_TRUE(comesTo(kTimingTitle, top - 2 * scaled(56)));
  turnWheelAt(margin(), 5 * WHEEL_DELTA);
  EXPECT_TRUE(comesTo(kTimingTitle, top)) << "no further than its beginning";
  turnWheelAt(margin(), -100 * WHEEL_DELTA);
  RECT seen{};
  GetClientRect(pane(), &seen);
  EXPECT_TRUE(comesTo(kTimingTitle, top - scaled(916) + static_cast<int>(seen.bottom)))
      << "no further than its end";
}

TEST_F(SettingsMouseTest, TheWheelOverAClosedComboScrollsThePageAndChoosesNothing) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  reveal(kShapeCombo);
  const std::string before = program.settingsBytes();
  for (const int combo : {kShapeCombo, kFontWeightCombo}) {
    SCOPED_TRACE(combo);
    const int chosen = row(combo);
    const int top = topOf(combo);
    turnWheelAt(middleOf(combo), WHEEL_DELTA);
    EXPECT_TRUE(comesTo(combo, top + scaled(56)));
    turnWheelAt(middleOf(combo), -WHEEL_DELTA);
    EXPECT_TRUE(comesTo(combo, top));
    EXPECT_EQ(row(combo), chosen);
  }
  EXPECT_EQ(program.settingsBytes(), before);
}

TEST_F(SettingsMouseTest, TheWheelOverAComboWithTheFocusChoosesNothingEither) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  choose(kModeCombo, 0);
  ASSERT_TRUE(isFocused(kModeCombo));
  const int top = topOf(kTimingTitle);
  turnWheelAt(middleOf(kModeCombo), -WHEEL_DELTA);
  EXPECT_TRUE(comesTo(kTimingTitle, top - scaled(56)));
  EXPECT_EQ(row(kModeCombo), 0);
}

TEST_F(SettingsMouseTest, TheWheelOverADroppedComboStaysInItsList) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  const int top = topOf(kTimingTitle);
  press(kModeCombo);
  ASSERT_TRUE(waitUntil([&] { return ask(control(kModeCombo), CB_GETDROPPEDSTATE) != 0; }));
  turnWheelAt(middleOf(kModeCombo), -WHEEL_DELTA);
  pressKeys(VK_ESCAPE);
  EXPECT_TRUE(waitUntil([&] { return ask(control(kModeCombo), CB_GETDROPPEDSTATE) == 0; }));
  EXPECT_EQ(topOf(kTimingTitle), top);
  EXPECT_TRUE(program.settings().autoMode);
}

TEST_F(SettingsMouseTest, TheWheelOverANumberChangesNoNumber) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  press(kMinutesBox);
  ASSERT_TRUE(isFocused(kMinutesBox));
  turnWheelAt(middleOf(kMinutesBox), WHEEL_DELTA);
  turnWheelAt(middleOf(kMinutesBox), -WHEEL_DELTA);
  typeText(L"0");  // the end of what the wheel may have done
  EXPECT_TRUE(waitUntil([&] { return text(kMinutesBox).size() == 3; }));
  EXPECT_EQ(text(kMinutesBox).find_first_not_of(L"150"), std::wstring::npos);
}

TEST_F(SettingsMouseTest, TheWheelOverTheListScrollsItAndAtItsEndsThePage) {
  const TemporaryFolder decks(L"many decks");
  for (char name = 'a'; name <= 'l'; ++name) {
    std::ofstream(std::filesystem::path(decks.path() + L"\\" + std::wstring(1, name) + L".ppt"))
        << "x";
  }
  Settings settings = quiet();
  settings.pptFolder = u16From(decks.path());
  ASSERT_NO_FATAL_FAILURE(open(settings));
  turnTo(4);
  const auto firstRow = [&] { return ask(control(kFileList), LB_GETTOPINDEX); };
  const int top = topOf(kFileList);
  RECT list{};
  GetWindowRect(control(kFileList), &list);
  const POINT onList{list.left + 100, list.top + 20};
  turnWheelAt(onList, -WHEEL_DELTA);
  EXPECT_TRUE(waitUntil([&] { return firstRow() > 0; }));
  EXPECT_EQ(topOf(kFileList), top);
  turnWheelAt(onList, -10 * WHEEL_DELTA);
  EXPECT_TRUE(waitUntil([&] { return firstRow() >= 12 - 4; }));
  turnWheelAt(onList, -WHEEL_DELTA);
  EXPECT_TRUE(comesTo(kFileList, top - scaled(56)));
}

TEST_F(SettingsMouseTest, ACornerOfThePreviewDragsTheSizeIntoTheBoxesTheFileAndTheClock) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  RECT preview{};
  GetWindowRect(control(kPreview), &preview);
  const POINT corner{preview.right - 4, preview.bottom - 4};
  moveTo(corner);
  pressAt(corner);
  ASSERT_TRUE(waitUntil([&] { return isHeld(); }));
  moveTo({corner.x + scaled(117), corner.y + scaled(18)});
  EXPECT_TRUE(reads(kWidthBox, L"300"));
  EXPECT_TRUE(reads(kHeightBox, L"100"));
  release();
  EXPECT_TRUE(waitUntil([&] { return !isHeld(); }));
  EXPECT_TRUE(saved(&Settings::windowWidth, 300));
  EXPECT_TRUE(saved(&Settings::windowHeight, 100));
  EXPECT_TRUE(says(kApplied));
  const RECT clock = program.rect();
  EXPECT_EQ(clock.right - clock.left, scaled(300));
  EXPECT_EQ(clock.bottom - clock.top, scaled(100));
}

struct Corner {
  bool left;
  bool top;
};

TEST_F(SettingsMouseTest, EveryCornerOfThePreviewChangesItsSizeAndLeavesItInItsPlace) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  int width = 183;
  int height = 82;
  for (const auto& [left, top] : {Corner{true, true}, Corner{false, true}, Corner{true, false}}) {
    RECT clock{};
    GetWindowRect(control(kPreview), &clock);
    const POINT corner{left ? clock.left + 4 : clock.right - 4,
                       top ? clock.top + 4 : clock.bottom - 4};
    const Point before = placeOfPreview();
    moveTo(corner);
    pressAt(corner);
    // The X server lets a press fall through at times.
    if (!waitUntil([&] { return isHeld(); }, 3000)) {
      release();
      pressAt(corner);
    }
    ASSERT_TRUE(waitUntil([&] { return isHeld(); }));
    moveTo(
        {corner.x + (left ? -scaled(30) : scaled(30)), corner.y + (top ? -scaled(6) : scaled(6))});
    width += 30;
    height += 6;
    EXPECT_TRUE(reads(kWidthBox, std::to_wstring(width)));
    EXPECT_TRUE(reads(kHeightBox, std::to_wstring(height)));
    EXPECT_EQ(placeOfPreview(), before);
    release();
    EXPECT_TRUE(waitUntil([&] { return !isHeld(); }));
    EXPECT_TRUE(saved(&Settings::windowHeight, static_cast<uint32_t>(height)));
  }
}

TEST_F(SettingsMouseTest, ThePreviewHeldInItsMiddleStaysAsItIs) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  clickMouse(middleOf(kPreview));
  press(kTransparentCheck);
  EXPECT_TRUE(saved(&Settings::transparent, true));
  EXPECT_EQ(text(kWidthBox), L"183");
  EXPECT_EQ(program.settings().windowWidth, 183u);
}

}  // namespace
}  // namespace mrl
