// A user's input in the settings window: what is typed, ticked and chosen reaches the file and the
// clock.
#include <gtest/gtest.h>

#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

constexpr auto kStage1 = &Settings::prompt1;
constexpr auto kStage2 = &Settings::prompt2;

struct CheckCase {
  int page;
  int id;
  bool (*value)(const Settings&);
};
template <auto kField>
bool of(const Settings& settings) {
  return settings.*kField;
}
template <auto kStage, auto kField>
bool of(const Settings& settings) {
  return settings.*kStage.*kField;
}
/// Without the two that switch each other off.
constexpr CheckCase kChecks[] = {
    {0, kHideNoDocumentCheck, of<&Settings::hideNoDocument>},
    {0, kPerSlideCheck, of<&Settings::perSlide>},
    {0, kHideZeroCheck, of<&Settings::hideZero>},
    {0, kExitShowCheck, of<&Settings::exitShow>},
    {0, kBlinkCheck, of<&Settings::blink>},
    {0, kSoundCheck, of<&Settings::sound>},
    {1, kTransparentCheck, of<&Settings::transparent>},
    {1, kMachineTimeCheck, of<&Settings::machineTime>},
    {2, kFirstStage + kStageBlinkWindow, of<kStage1, &PromptStage::blinkWindow>},
    {2, kFirstStage + kStageBlinkBackground, of<kStage1, &PromptStage::blinkBackground>},
    {2, kFirstStage + kStageSound, of<kStage1, &PromptStage::sound>},
    {2, kFirstStage + kStageEnabled, of<kStage1, &PromptStage::enabled>},
    {2, kSecondStage + kStageBlinkWindow, of<kStage2, &PromptStage::blinkWindow>},
    {2, kSecondStage + kStageBlinkBackground, of<kStage2, &PromptStage::blinkBackground>},
    {2, kSecondStage + kStageSound, of<kStage2, &PromptStage::sound>},
    {2, kSecondStage + kStageEnabled, of<kStage2, &PromptStage::enabled>},
    {4, kHideExcludedCheck, of<&Settings::hideExcluded>},
};

struct NumberCase {
  int page;
  int id;
  const wchar_t* typed;
  uint32_t (*value)(const Settings&);
  uint32_t expected;
};
template <auto kField>
uint32_t numberOf(const Settings& settings) {
  return settings.*kField;
}
template <auto kStage, auto kField>
uint32_t numberOf(const Settings& settings) {
  return settings.*kStage.*kField;
}
constexpr NumberCase kNumbers[] = {
    {0, kMinutesBox, L"999", numberOf<&Settings::duration>, 59940},
    {0, kSecondsBox, L"59", numberOf<&Settings::duration>, 59999},
    {0, kMinutesBox, L"0", numberOf<&Settings::duration>, 59},
    {0, kBlinkSecondsBox, L"3600", numberOf<&Settings::blinkSeconds>, 3600},
    {0, kSoundSecondsBox, L"3600", numberOf<&Settings::soundSeconds>, 3600},
    {0, kResetDelayBox, L"3600", numberOf<&Settings::resetDelay>, 3600},
    {1, kWidthBox, L"1200", numberOf<&Settings::windowWidth>, 1200},
    {1, kWidthBox, L"120", numberOf<&Settings::windowWidth>, 120},
    {1, kHeightBox, L"600", numberOf<&Settings::windowHeight>, 600},
    {1, kHeightBox, L"50", numberOf<&Settings::windowHeight>, 50},
    {1, kOpacityBox, L"100", numberOf<&Settings::opacity>, 100},
    {1, kOpacityBox, L"10", numberOf<&Settings::opacity>, 10},
    {1, kBlinkOnBox, L"50", numberOf<&Settings::blinkOn>, 50},
    {1, kBlinkOffBox, L"10000", numberOf<&Settings::blinkOff>, 10000},
    {1, kForegroundBox, L"#123abc", numberOf<&Settings::foreground>, 0x123ABC},
    {1, kBackgroundBox, L"#FFFFFF", numberOf<&Settings::background>, 0xFFFFFF},
    {1, kAlertBox, L"#000000", numberOf<&Settings::alert>, 0},
    {2, kFirstStage + kStageMinutes, L"7", numberOf<kStage1, &PromptStage::advance>, 420},
    {2, kFirstStage + kStageSeconds, L"8", numberOf<kStage1, &PromptStage::advance>, 428},
    {2, kFirstStage + kStageBlinkSeconds, L"9", numberOf<kStage1, &PromptStage::blinkSeconds>, 9},
    {2, kFirstStage + kStageSoundSeconds, L"11", numberOf<kStage1, &PromptStage::soundSeconds>, 11},
    {2, kSecondStage + kStageMinutes, L"2", numberOf<kStage2, &PromptStage::advance>, 150},
    {2, kSecondStage + kStageSeconds, L"1", numberOf<kStage2, &PromptStage::advance>, 121},
    {2, kSecondStage + kStageBlinkSeconds, L"3", numberOf<kStage2, &PromptStage::blinkSeconds>, 3},
    {2, kSecondStage + kStageSoundSeconds, L"4", numberOf<kStage2, &PromptStage::soundSeconds>, 4},
};

class SettingsInputTest : public SettingsHand {
 protected:
  /// Settings with which every box is enabled.
  static Settings allOn() {
    Settings settings = quiet();
    settings.sound = settings.switchPpt = true;
    settings.prompt1.enabled = settings.prompt1.sound = true;
    settings.prompt2.enabled = settings.prompt2.sound = true;
    return settings;
  }
  void turnToPageOf(int index) const {
    if (page() != index) turnTo(index);
  }
  void expectTurned(const CheckCase& check, bool before) {
    EXPECT_TRUE(becomesChecked(check.id, !before)) << check.id;
    EXPECT_TRUE(waitUntil([&] { return check.value(program.settings()) != before; })) << check.id;
    EXPECT_TRUE(says(kApplied)) << check.id;
  }
};

TEST_F(SettingsInputTest, ATypedTimeIsSavedByItselfAndStandsOnTheClock) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  EXPECT_EQ(status(), L"设置自动生效");
  retype(kMinutesBox, L"7");
  EXPECT_TRUE(says(kEditing));
  EXPECT_TRUE(says(kApplied));
  EXPECT_EQ(program.settings().duration, 420u);
  EXPECT_TRUE(program.waitForText(L"07:00"));
  retype(kSecondsBox, L"30");
  EXPECT_TRUE(saved(&Settings::duration, 450));
  EXPECT_TRUE(program.waitForText(L"07:30"));
}

TEST_F(SettingsInputTest, WhatIsTypedInOneGoIsSavedOnce) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  retype(kMinutesBox, L"120");
  uint32_t seen = 900;
  EXPECT_TRUE(waitUntil([&] { return (seen = program.settings().duration) != 900; }));
  EXPECT_EQ(seen, 7200u) << "neither 1 nor 12 minutes";
}

TEST_F(SettingsInputTest, EveryNumberAndColourReachesTheFile) {
  ASSERT_NO_FATAL_FAILURE(open(allOn()));
  for (const NumberCase& box : kNumbers) {
    SCOPED_TRACE(box.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(box.page));
    ASSERT_NO_FATAL_FAILURE(retype(box.id, box.typed));
    pressKeys(VK_RETURN);
    EXPECT_TRUE(waitUntil([&] { return box.value(program.settings()) == box.expected; }));
    EXPECT_TRUE(says(kApplied));
    EXPECT_EQ(text(box.id), box.typed) << "it stays as it was typed";
  }
}

TEST_F(SettingsInputTest, EveryTickReachesTheFileAndAnotherTakesItBack) {
  ASSERT_NO_FATAL_FAILURE(open(allOn()));
  for (const CheckCase& check : kChecks) {
    SCOPED_TRACE(check.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(check.page));
    const bool before = check.value(program.settings());
    ASSERT_EQ(isChecked(check.id), before);
    press(check.id);
    expectTurned(check, before);
    press(check.id);
    expectTurned(check, !before);
  }
}

TEST_F(SettingsInputTest, ABlackScreenPutsOutWhatItExcludesAndIsPutOutByIt) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  press(kExitShowCheck);
  press(kSwitchCheck);
  EXPECT_TRUE(saved(&Settings::switchPpt, true));
  press(kBlackCheck);
  EXPECT_TRUE(says(L"设置已生效；与之冲突的结束动作已关闭。"));
  EXPECT_TRUE(becomesChecked(kExitShowCheck, false));
  EXPECT_TRUE(becomesChecked(kSwitchCheck, false));
  Settings now = program.settings();
  EXPECT_TRUE(now.black && !now.exitShow && !now.switchPpt);
  press(kExitShowCheck);
  EXPECT_TRUE(becomesChecked(kBlackCheck, false));
  EXPECT_FALSE(isChecked(kSwitchCheck));
  now = program.settings();
  EXPECT_TRUE(!now.black && now.exitShow && !now.switchPpt);
}

TEST_F(SettingsInputTest, TheSentenceTellsTheActionsBeforeAnythingElseDoes) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  EXPECT_EQ(text(kExpirySummary), L"计时结束后：持续闪烁；");
  press(kSoundCheck);
  EXPECT_TRUE(reads(kExpirySummary, L"计时结束后：持续闪烁；播放提示音；"));
  retype(kBlinkSecondsBox, L"10");
  EXPECT_TRUE(reads(kExpirySummary, L"计时结束后：闪烁 10 秒；播放提示音；"));
  press(kUpRadio);
  EXPECT_TRUE(reads(kExpirySummary, L"正计时：到期动作和阶段提醒不会触发。"));
}

TEST_F(SettingsInputTest, ARadioButtonTurnsTheClockRound) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  press(kUpRadio);
  EXPECT_TRUE(says(kApplied));
  EXPECT_TRUE(isChecked(kUpRadio));
  EXPECT_FALSE(isChecked(kDownRadio));
  EXPECT_FALSE(program.settings().down);
  EXPECT_TRUE(program.waitForText(L"00:00"));
  press(kDownRadio);
  EXPECT_TRUE(saved(&Settings::down, true));
  EXPECT_TRUE(program.waitForText(L"15:00"));
}

TEST_F(SettingsInputTest, TheMouseChoosesTheMode) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  choose(kModeCombo, 1);
  EXPECT_TRUE(saved(&Settings::autoMode, false));
  choose(kModeCombo, 0);
  EXPECT_TRUE(saved(&Settings::autoMode, true));
}

TEST_F(SettingsInputTest, TheMouseChoosesShapeAndWeight) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  choose(kShapeCombo, 2);
  EXPECT_TRUE(saved(&Settings::shape, 2));
  EXPECT_TRUE(says(kApplied));
  constexpr uint32_t kWeights[] = {300, 400, 700, 900};
  for (int row = 0; row < 4; ++row) {
    choose(kFontWeightCombo, row);
    EXPECT_TRUE(saved(&Settings::fontWeight, kWeights[row]));
  }
}

TEST_F(SettingsInputTest, ThePhaseOfThePreviewIsNobodysSetting) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  const std::string before = program.settingsBytes();
  choose(kPreviewPhaseCombo, 2);
  EXPECT_EQ(row(kPreviewPhaseCombo), 2);
  pressKeys('S', {VK_CONTROL});
  EXPECT_EQ(status(), L"设置自动生效");
  EXPECT_EQ(program.settingsBytes(), before);
}

TEST_F(SettingsInputTest, ATypedSizeResizesTheClockAndOneButtonTakesItBack) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  retype(kWidthBox, L"400");
  retype(kHeightBox, L"200");
  const auto sizeIs = [&](int width, int height) {
    return waitUntil([&] {
      const RECT clock = program.rect();
      return clock.right - clock.left == scaled(width) &&
             clock.bottom - clock.top == scaled(height);
    });
  };
  EXPECT_TRUE(sizeIs(400, 200));
  EXPECT_TRUE(says(kApplied));
  press(kDefaultSizeButton);
  EXPECT_TRUE(sizeIs(183, 82));
  EXPECT_EQ(text(kWidthBox), L"183");
  EXPECT_EQ(text(kHeightBox), L"82");
  EXPECT_TRUE(saved(&Settings::windowHeight, 82));
}

TEST_F(SettingsInputTest, AFontIsTakenAsItIsTyped) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  retype(kFontNameBox, L"微软雅黑 \"Bold\"");
  EXPECT_TRUE(saved(&Settings::fontName, u"微软雅黑 \"Bold\""));
  EXPECT_TRUE(says(kApplied));
}

TEST_F(SettingsInputTest, TheButtonsOfTheFrameRunTheClock) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  EXPECT_TRUE(reads(kToggleButton, L"开始"));
  press(kToggleButton);
  EXPECT_TRUE(reads(kToggleButton, L"暂停"));
  EXPECT_TRUE(program.isCounting());
  press(kToggleButton);
  EXPECT_TRUE(reads(kToggleButton, L"继续"));
  press(kResetButton);
  EXPECT_TRUE(program.waitForText(L"15:00"));
  EXPECT_TRUE(reads(kTimerLine, L"自动 · 等待放映  · 遥控未开启  15:00"));
}

TEST_F(SettingsInputTest, WhatNeedsAnotherSettingCanBeTypedOnlyWithIt) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  EXPECT_FALSE(isEnabled(kSoundFileBox));
  press(kSoundCheck);
  EXPECT_TRUE(waitUntil([&] { return isEnabled(kSoundFileBox) && isEnabled(kSoundSecondsBox); }));
  press(kSoundCheck);
  EXPECT_TRUE(waitUntil([&] { return !isEnabled(kSoundFileBox); }));
  press(kSoundFileBox);
  typeText(L"x");
  EXPECT_TRUE(saved(&Settings::sound, false));
  EXPECT_EQ(text(kSoundFileBox), L"");
}

}  // namespace
}  // namespace mrl
