// The real settings window operated by keyboard only.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/wide_win.h"
#include "settings_window/control_table.h"
#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsKeyboardTest : public SettingsHand {
 protected:
  void showPage(int index) const {
    pressKeys(static_cast<WORD>('1' + index), {VK_CONTROL});
    ASSERT_TRUE(waitUntil([&] { return page() == index && showsOnly(index); }));
    ASSERT_TRUE(isFocused(kFirstSection + index));
  }
  /// The Tab stops in order: those on the page, then those in the frame around it.
  std::vector<int> stops(int index) const {
    std::vector<int> all;
    for (const int tag : {index, kEveryPage}) {
      for (const Control& row : allControls()) {
        // In a radio group only the checked button is a Tab stop.
        const bool isOff = row.kind == ControlKind::Radio && !isChecked(row.id);
        if (row.page == tag && isInteractive(row.kind) && isEnabled(row.id) && !isOff) {
          all.push_back(row.id);
        }
      }
    }
    return all;
  }
  std::vector<int> walk(size_t steps, std::initializer_list<WORD> held) const {
    std::vector<int> seen;
    while (seen.size() < steps) {
      const int from = focusedId();
      pressKeys(VK_TAB, held);
      if (!waitUntil([&] { return focusedId() != from; }, 3000)) break;
      seen.push_back(focusedId());
    }
    return seen;
  }
  void focusBox(int id) const {
    for (int steps = 0; focusedId() != id; ++steps) {
      ASSERT_LT(steps, 60);
      ASSERT_EQ(walk(1, {}).size(), 1u);
    }
  }
  void overtype(int id, std::wstring_view text) const {
    focusBox(id);
    pressKeys(VK_HOME);
    pressKeys(VK_END, {VK_SHIFT});
    typeText(text);
  }
};

TEST_F(SettingsKeyboardTest, TabGoesRoundAllThatAPageHasAndShiftTabGoesBack) {
  Settings settings = quiet();
  settings.sound = settings.switchPpt = true;
  settings.prompt1.enabled = settings.prompt1.sound = true;
  settings.prompt2.enabled = settings.prompt2.sound = true;
  ASSERT_NO_FATAL_FAILURE(open(settings));
  for (int index = 0; index < kPageCount; ++index) {
    SCOPED_TRACE(index);
    ASSERT_NO_FATAL_FAILURE(showPage(index));
    std::vector<int> expected = stops(index);
    // Starting at the section's button, and once around to it.
    std::ranges::rotate(expected, std::ranges::find(expected, kFirstSection + index) + 1);
    EXPECT_EQ(walk(expected.size(), {}), expected);
    std::ranges::reverse(expected);
    std::ranges::rotate(expected, expected.begin() + 1);
    EXPECT_EQ(walk(expected.size(), {VK_SHIFT}), expected);
  }
}

TEST_F(SettingsKeyboardTest, TabFindsTheButtonsThatASelectedFileSwitchesOn) {
  std::ofstream(std::filesystem::path(program.folder() + L"\\a.pptx")) << "x";
  Settings settings = quiet();
  settings.pptFolder = u16From(program.folder());
  ASSERT_NO_FATAL_FAILURE(open(settings));
  ASSERT_NO_FATAL_FAILURE(showPage(4));
  focusBox(kFileList);
  pressKeys(VK_DOWN);
  ASSERT_TRUE(waitUntil([&] { return isEnabled(kCloseFileButton); }));
  const std::vector<int> expected{kHideExcludedCheck, kOpenFileButton, kPlayFileButton,
                                  kCloseFileButton, kBeginShowButton};
  EXPECT_EQ(walk(expected.size(), {}), expected);
}

TEST_F(SettingsKeyboardTest, TheKeyboardStartsTheServiceAndFindsTheButtonForItsAddress) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  ASSERT_NO_FATAL_FAILURE(showPage(3));
  focusBox(kServiceButton);
  pressKeys(VK_SPACE);
  ASSERT_TRUE(waitUntil([&] { return isEnabled(kCopyAddressButton); }));
  ASSERT_TRUE(putOnClipboard(L"something else"));
  focusBox(kCopyAddressButton);
  pressKeys(VK_SPACE);
  EXPECT_TRUE(says(L"遥控地址已复制。"));
  EXPECT_TRUE(clipboardText().starts_with(L"http://"));
}

TEST_F(SettingsKeyboardTest, TabBringsWhatItFindsIntoSight) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  RECT seen{};
  GetClientRect(pane(), &seen);
  ASSERT_GT(rect(kResetDelayBox).top, seen.bottom);
  focusBox(kResetDelayBox);
  EXPECT_TRUE(waitUntil([&] { return rect(kResetDelayBox).bottom < seen.bottom; }));
  pressKeys(VK_TAB);
  ASSERT_TRUE(isFocused(kFirstSection));
  EXPECT_LT(rect(kMinutesBox).top, 0) << "a button beside the page does not move it";
  focusBox(kMinutesBox);
  EXPECT_TRUE(waitUntil([&] { return rect(kMinutesBox).top > 0; }));
}

TEST_F(SettingsKeyboardTest, ArrowsGoRoundTheRadioButtons) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  focusBox(kDownRadio);
  pressKeys(VK_RIGHT);
  EXPECT_TRUE(saved(&Settings::down, false));
  EXPECT_TRUE(isFocused(kUpRadio));
  pressKeys(VK_DOWN);
  EXPECT_TRUE(isFocused(kDownRadio));
  EXPECT_TRUE(saved(&Settings::down, true));
  pressKeys(VK_UP);
  EXPECT_TRUE(isFocused(kUpRadio));
  EXPECT_TRUE(saved(&Settings::down, false));
  pressKeys(VK_LEFT);
  EXPECT_TRUE(isFocused(kDownRadio));
  EXPECT_TRUE(saved(&Settings::down, true));
}

TEST_F(SettingsKeyboardTest, SpaceTicksAndTakesTheTickBack) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  focusBox(kPerSlideCheck);
  pressKeys(VK_SPACE);
  EXPECT_TRUE(saved(&Settings::perSlide, true));
  EXPECT_TRUE(isChecked(kPerSlideCheck));
  pressKeys(VK_SPACE);
  EXPECT_TRUE(saved(&Settings::perSlide, false));
}

TEST_F(SettingsKeyboardTest, ArrowsChooseInACombo) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  ASSERT_NO_FATAL_FAILURE(showPage(1));
  focusBox(kShapeCombo);
  pressKeys(VK_DOWN);
  EXPECT_TRUE(saved(&Settings::shape, 2));
  pressKeys(VK_UP);
  pressKeys(VK_UP);
  EXPECT_TRUE(saved(&Settings::shape, 0));
  EXPECT_TRUE(says(kApplied));
}

TEST_F(SettingsKeyboardTest, ADroppedComboIsChosenByEnterAndTheWindowStays) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  ASSERT_NO_FATAL_FAILURE(showPage(1));
  focusBox(kFontWeightCombo);
  moveTo({0, 0});  // over the list it would change the selection
  const auto isDropped = [&] { return ask(control(kFontWeightCombo), CB_GETDROPPEDSTATE) != 0; };
  pressKeys(VK_F4);
  ASSERT_TRUE(waitUntil(isDropped));
  pressKeys(VK_DOWN);
  pressKeys(VK_RETURN);
  EXPECT_TRUE(saved(&Settings::fontWeight, 900));
  EXPECT_TRUE(waitUntil([&] { return !isDropped(); }));
  EXPECT_NE(window(), nullptr);
}

TEST_F(SettingsKeyboardTest, ControlAndADigitOpenThePageAtItsTop) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  reveal(kResetDelayBox);
  const int top = topOf(kTimingTitle);
  selectAll(kResetDelayBox);
  ASSERT_NO_FATAL_FAILURE(showPage(2));
  EXPECT_EQ(status(), L"设置自动生效") << "nothing was typed, nothing is applied";
  ASSERT_NO_FATAL_FAILURE(showPage(0));
  EXPECT_GT(topOf(kTimingTitle), top);
  EXPECT_EQ(topOf(kTimingTitle), scaled(20));
  for (int index = kPageCount; index-- > 0;) ASSERT_NO_FATAL_FAILURE(showPage(index));
}

TEST_F(SettingsKeyboardTest, ControlAndADigitLeaveABoxWhichAppliesWhatWasTyped) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  overtype(kMinutesBox, L"7");
  ASSERT_NO_FATAL_FAILURE(showPage(2));
  EXPECT_TRUE(saved(&Settings::duration, 420));
  EXPECT_TRUE(says(kApplied));
}

TEST_F(SettingsKeyboardTest, ControlAndADigitLeaveWrongInputAsItIs) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  overtype(kSecondsBox, L"70");
  ASSERT_NO_FATAL_FAILURE(showPage(4));
  EXPECT_TRUE(says(std::wstring(L"请输入有效数值（0–59）。") + kNotApplied));
  ASSERT_NO_FATAL_FAILURE(showPage(0));
  EXPECT_TRUE(isRed(kSecondsBox));
  EXPECT_EQ(text(kSecondsBox), L"70");
  EXPECT_EQ(program.settings().duration, 900u);
}

TEST_F(SettingsKeyboardTest, AltGrTypesCharactersAndTurnsNoPage) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  press(kMinutesBox);
  ASSERT_TRUE(isFocused(kMinutesBox));
  pressKeys('3', {VK_CONTROL, VK_MENU});
  typeText(L"7");  // into the focused control
  EXPECT_TRUE(waitUntil([&] { return text(kMinutesBox).find(L'7') != std::wstring::npos; }));
  EXPECT_EQ(page(), 0);
}

TEST_F(SettingsKeyboardTest, ControlAndSApplyAndTheBoxKeepsTheFocus) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  overtype(kSecondsBox, L"70");
  ASSERT_TRUE(reads(kSecondsBox, L"70"));
  pressKeys('S', {VK_CONTROL});
  EXPECT_TRUE(becomesRed(kSecondsBox));
  EXPECT_EQ(focusedId(), kSecondsBox);
  pressKeys(VK_BACK);
  pressKeys('S', {VK_CONTROL});
  EXPECT_TRUE(saved(&Settings::duration, 907));
  EXPECT_FALSE(isRed(kSecondsBox));
}

TEST_F(SettingsKeyboardTest, TabAppliesWhatItLeaves) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  overtype(kSecondsBox, L"70");
  pressKeys(VK_TAB);
  EXPECT_TRUE(becomesRed(kSecondsBox));
  overtype(kSecondsBox, L"7");
  pressKeys(VK_TAB);
  EXPECT_TRUE(saved(&Settings::duration, 907));
}

TEST_F(SettingsKeyboardTest, SpaceAndEnterPressTheButtonThatHasTheFocus) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  focusBox(kToggleButton);
  pressKeys(VK_SPACE);
  EXPECT_TRUE(reads(kToggleButton, L"暂停"));
  pressKeys(VK_RETURN);
  EXPECT_TRUE(reads(kToggleButton, L"继续"));
}

TEST_F(SettingsKeyboardTest, SpaceOpensTheSectionThatHasTheFocus) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  focusBox(kFirstSection + 3);
  pressKeys(VK_SPACE);
  EXPECT_TRUE(waitUntil([&] { return page() == 3 && showsOnly(3); }));
}

TEST_F(SettingsKeyboardTest, SpaceExcludesTheFileThatArrowsHaveFound) {
  Settings settings = quiet();
  settings.pptFolder = u16From(program.folder());
  for (const wchar_t* name : {L"\\a.pptx", L"\\b.pptx"}) {
    std::ofstream(std::filesystem::path(program.folder() + name)) << "x";
  }
  ASSERT_NO_FATAL_FAILURE(open(settings));
  ASSERT_NO_FATAL_FAILURE(showPage(4));
  EXPECT_FALSE(isEnabled(kOpenFileButton));
  focusBox(kFileList);
  pressKeys(VK_DOWN);
  pressKeys(VK_DOWN);
  EXPECT_TRUE(waitUntil([&] { return isEnabled(kOpenFileButton); }));
  pressKeys(VK_SPACE);
  EXPECT_TRUE(waitUntil([&] { return program.settings().skipList.size() == 1; }));
  EXPECT_TRUE(says(kApplied));
  pressKeys(VK_SPACE);
  EXPECT_TRUE(waitUntil([&] { return program.settings().skipList.empty(); }));
}

TEST_F(SettingsKeyboardTest, AWindowThatComesBackToTheFrontHasItsFocusBack) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  focusBox(kSecondsBox);
  const HWND other = CreateWindowExW(0, L"STATIC", L"another window", WS_POPUP | WS_VISIBLE, 0, 0,
                                     50, 50, nullptr, nullptr, nullptr, nullptr);
  SetForegroundWindow(other);
  ASSERT_TRUE(waitUntil([&] { return focusedId() == 0; }));
  SetForegroundWindow(window());
  EXPECT_TRUE(isFocused(kSecondsBox));
  DestroyWindow(other);
}

TEST_F(SettingsKeyboardTest, EscapeClosesTheWindow) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  focusBox(kSecondsBox);
  pressKeys(VK_ESCAPE);
  EXPECT_TRUE(waitUntil([&] { return window() == nullptr; }));
}

}  // namespace
}  // namespace mrl
