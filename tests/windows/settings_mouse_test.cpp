// The mouse in the real settings window: the wheel, and the corners of the preview.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/wide_win.h"
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
  /// Waits until the preview is centred in the visible part of its host, or at its start if larger.
  bool standsInTheMiddleOfItsHost() const {
    return waitUntil([&] {
      RECT host{};
      GetClientRect(control(kPreviewHost), &host);
      const Rect now = rect(kPreview);
      return now.left == std::max((static_cast<int>(host.right) - now.width()) / 2, 0) &&
             now.top == std::max((static_cast<int>(host.bottom) - now.height()) / 2, 0);
    });
  }
  POINT cornerOfPreview() const {
    RECT preview{};
    GetWindowRect(control(kPreview), &preview);
    return {preview.right - 4, preview.bottom - 4};
  }
  /// True while the mouse drags one of its corners.
  bool holdsPreview() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window(), nullptr), &info) &&
           info.hwndCapture == control(kPreview);
  }
  void takeHoldOf(POINT corner) const {
    moveTo(corner);
    pressAt(corner);
    // The X server sometimes loses a press.
    if (!waitUntil([&] { return holdsPreview(); }, 3000)) {
      release();
      pressAt(corner);
    }
    ASSERT_TRUE(waitUntil([&] { return holdsPreview(); }));
  }
  Point placeOfPreview() const { return {rect(kPreview).left, rect(kPreview).top}; }
  bool hasBar(LONG style) const {
    return (GetWindowLongW(control(kPreviewHost), GWL_STYLE) & style) != 0;
  }
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
  typeText(L"0");  // handled after any effect of the wheel
  EXPECT_TRUE(waitUntil([&] { return text(kMinutesBox).size() == 3; }));
  EXPECT_EQ(text(kMinutesBox).find_first_not_of(L"150"), std::wstring::npos);
}

class SettingsListWheelTest : public SettingsMouseTest {
 protected:
  /// Opens the page that lists twelve decks.
  void SetUp() override {
    for (char name = 'a'; name <= 'l'; ++name) {
      std::ofstream(std::filesystem::path(decks.path() + L"\\" + std::wstring(1, name) + L".ppt"))
          << "x";
    }
    Settings settings = quiet();
    settings.pptFolder = u16From(decks.path());
    ASSERT_NO_FATAL_FAILURE(open(settings));
    turnTo(4);
  }
  POINT onList() const {
    RECT list{};
    GetWindowRect(control(kFileList), &list);
    return {list.left + 100, list.top + 20};
  }
  int firstRow() const { return static_cast<int>(ask(control(kFileList), LB_GETTOPINDEX)); }

  const TemporaryFolder decks{L"many decks"};
};

TEST_F(SettingsListWheelTest, TheWheelOverTheListScrollsItAndAtItsEndsThePage) {
  const int top = topOf(kFileList);
  const POINT point = onList();
  turnWheelAt(point, -WHEEL_DELTA);
  EXPECT_TRUE(waitUntil([&] { return firstRow() > 0; }));
  EXPECT_EQ(topOf(kFileList), top);
  turnWheelAt(point, -10 * WHEEL_DELTA);
  EXPECT_TRUE(waitUntil([&] { return firstRow() >= 12 - 4; }));
  turnWheelAt(point, -WHEEL_DELTA);
  EXPECT_TRUE(comesTo(kFileList, top - scaled(56)));
}

TEST_F(SettingsListWheelTest, AFileThatIsExcludedLeavesTheListWhereItStands) {
  turnWheelAt(onList(), -WHEEL_DELTA);
  ASSERT_TRUE(waitUntil([&] { return firstRow() > 0; }));
  const int first = firstRow();
  RECT list{};
  GetWindowRect(control(kFileList), &list);
  clickMouse({list.right - GetSystemMetrics(SM_CXVSCROLL) - scaled(70), list.top + 20});
  ASSERT_TRUE(waitUntil([&] { return program.settings().skipList.size() == 1; }));
  EXPECT_EQ(firstRow(), first);
}

TEST_F(SettingsListWheelTest, AWheelWithAKeyHeldScrollsThePageByOneNotch) {
  for (const WORD key : {VK_CONTROL, VK_SHIFT}) {
    const int top = topOf(kFileList);
    turnWheelAt(onList(), -WHEEL_DELTA, {key});
    EXPECT_TRUE(comesTo(kFileList, top - scaled(56)));
    turnWheelAt(margin(), WHEEL_DELTA);  // handled after any effect of the turn
    EXPECT_TRUE(comesTo(kFileList, top)) << key;
    EXPECT_EQ(firstRow(), 0);
  }
}

TEST_F(SettingsListWheelTest, AfterATurnWithAKeyHeldTheListScrollsAgain) {
  const int top = topOf(kFileList);
  turnWheelAt(onList(), -WHEEL_DELTA, {VK_CONTROL});
  ASSERT_TRUE(comesTo(kFileList, top - scaled(56)));
  ask(pane(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)),
      MAKELPARAM(onList().x, onList().y));
  EXPECT_GT(firstRow(), 0);
}

TEST_F(SettingsMouseTest, ACornerOfThePreviewDragsTheSizeIntoTheBoxesTheFileAndTheClock) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  const POINT corner = cornerOfPreview();
  ASSERT_NO_FATAL_FAILURE(takeHoldOf(corner));
  moveTo({corner.x + scaled(117), corner.y + scaled(18)});
  EXPECT_TRUE(reads(kWidthBox, L"300"));
  EXPECT_TRUE(reads(kHeightBox, L"100"));
  release();
  EXPECT_TRUE(waitUntil([&] { return !holdsPreview(); }));
  EXPECT_TRUE(standsInTheMiddleOfItsHost());
  EXPECT_TRUE(saved(&Settings::windowWidth, 300));
  EXPECT_TRUE(saved(&Settings::windowHeight, 100));
  EXPECT_TRUE(says(kApplied));
  const RECT clock = program.rect();
  EXPECT_EQ(clock.right - clock.left, scaled(300));
  EXPECT_EQ(clock.bottom - clock.top, scaled(100));
}

TEST_F(SettingsMouseTest, WhileACornerIsDraggedThePreviewIsPaintedInTheSizeItHas) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  const auto preview = [&] {
    RECT place{};
    GetWindowRect(control(kPreview), &place);
    return settledPictureOf(place);
  };
  const POINT corner = cornerOfPreview();
  ASSERT_NO_FATAL_FAILURE(takeHoldOf(corner));
  moveTo({corner.x + scaled(117), corner.y});  // any higher, its host would clip it
  ASSERT_TRUE(reads(kWidthBox, L"300"));
  const Picture held = preview();
  release();
  ASSERT_TRUE(standsInTheMiddleOfItsHost());
  EXPECT_TRUE(waitUntil([&] { return preview() == held; })) << "painted anew";
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
    ASSERT_NO_FATAL_FAILURE(takeHoldOf(corner));
    moveTo(
        {corner.x + (left ? -scaled(30) : scaled(30)), corner.y + (top ? -scaled(6) : scaled(6))});
    width += 30;
    height += 6;
    EXPECT_TRUE(reads(kWidthBox, std::to_wstring(width)));
    EXPECT_TRUE(reads(kHeightBox, std::to_wstring(height)));
    EXPECT_EQ(placeOfPreview(), before);
    release();
    EXPECT_TRUE(waitUntil([&] { return !holdsPreview(); }));
    EXPECT_TRUE(saved(&Settings::windowHeight, static_cast<uint32_t>(height)));
  }
}

TEST_F(SettingsMouseTest, ASecondPressSoonAfterTheFirstDragsTheCornerToo) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  clickMouse(cornerOfPreview());
  pressAt(cornerOfPreview());
  EXPECT_TRUE(waitUntil([&] { return holdsPreview(); }));
  release();
}

TEST_F(SettingsMouseTest, APreviewStandsInTheMiddleOfWhatItsScrollBarsLeave) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  const auto becomes = [&](int width, int height) {
    return waitUntil([&] {
      return rect(kPreview).width() == scaled(width) && rect(kPreview).height() == scaled(height);
    });
  };
  retype(kWidthBox, L"1000");
  ASSERT_TRUE(becomes(1000, 82));
  EXPECT_TRUE(hasBar(WS_HSCROLL));
  EXPECT_TRUE(standsInTheMiddleOfItsHost());
  retype(kHeightBox, L"110");
  ASSERT_TRUE(becomes(1000, 110));
  EXPECT_TRUE(hasBar(WS_VSCROLL));
  EXPECT_TRUE(standsInTheMiddleOfItsHost());
  press(kDefaultSizeButton);
  ASSERT_TRUE(becomes(183, 82));
  EXPECT_FALSE(hasBar(WS_HSCROLL) || hasBar(WS_VSCROLL));
  EXPECT_TRUE(standsInTheMiddleOfItsHost());
}

TEST_F(SettingsMouseTest, ABarOfThePreviewThatTakesTheRoomOfTheOtherWayBringsTheOtherBar) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  RECT host{};
  GetClientRect(control(kPreviewHost), &host);
  const int width = toUnits(static_cast<int>(host.right), dpi()) - 5;
  retype(kWidthBox, std::to_wstring(width));
  ASSERT_TRUE(waitUntil([&] { return rect(kPreview).width() == scaled(width); }));
  ASSERT_FALSE(hasBar(WS_HSCROLL) || hasBar(WS_VSCROLL));
  retype(kHeightBox, L"300");
  EXPECT_TRUE(waitUntil([&] { return hasBar(WS_VSCROLL) && hasBar(WS_HSCROLL); }));
}

TEST_F(SettingsMouseTest, TheLimitsOfThePreviewAreThoseOfTheClock) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  MINMAXINFO limits{};
  SendMessageW(control(kPreview), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_EQ(limits.ptMinTrackSize.x, scaled(120));
  EXPECT_EQ(limits.ptMinTrackSize.y, scaled(50));
  EXPECT_EQ(limits.ptMaxTrackSize.x, scaled(1200));
  EXPECT_EQ(limits.ptMaxTrackSize.y, scaled(600));
}

TEST_F(SettingsMouseTest, AClickOnThePaddingOfABoxIsAClickOnTheBox) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  reveal(kBlinkSecondsBox);
  for (const int id : {int{kMinutesBox}, int{kSecondsBox}, int{kBlinkSecondsBox}}) {
    SCOPED_TRACE(id);
    reveal(id);
    RECT box{};
    GetWindowRect(control(id), &box);
    const LONG x = (box.left + box.right) / 2;
    const LONG y = (box.top + box.bottom) / 2;
    for (const POINT point : {POINT{box.left + 4, y}, POINT{box.right - 4, y},
                              POINT{x, box.top + 3}, POINT{x, box.bottom - 3}}) {
      press(kPerSlideCheck);
      ASSERT_TRUE(isFocused(kPerSlideCheck));
      clickMouse(point);
      EXPECT_TRUE(isFocused(id)) << point.x - box.left << "," << point.y - box.top;
    }
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
