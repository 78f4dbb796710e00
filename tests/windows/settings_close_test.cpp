// Closing the real settings window with unapplied input: the question, and the effect of each
// answer.
#include <gtest/gtest.h>

#include "base/command_ids.h"
#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsCloseTest : public SettingsHand {
 protected:
  static constexpr wchar_t kWrong[] = L"请输入有效数值（0–59）。";

  void openWithWrongInput() {
    ASSERT_NO_FATAL_FAILURE(open(quiet()));
    retype(kSecondsBox, L"70");
    ASSERT_TRUE(reads(kSecondsBox, L"70"));
    pressKeys(VK_RETURN);
    ASSERT_TRUE(says(kWrong + std::wstring(kNotApplied)));
  }
  void expectAllAsItWas() const {
    EXPECT_NE(window(), nullptr);
    EXPECT_TRUE(isRed(kSecondsBox));
    EXPECT_EQ(text(kSecondsBox), L"70");
    EXPECT_EQ(status(), kWrong + std::wstring(kNotApplied));
    EXPECT_EQ(program.settings().duration, 900u);
  }
};

TEST_F(SettingsCloseTest, WrongInputIsAskedAboutAndNoKeepsItAll) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  press(kCloseButton);
  ASSERT_TRUE(asks());
  EXPECT_EQ(questionText(), L"部分输入无效或保存失败，尚未生效。放弃这些输入并关闭？");
  EXPECT_NE(GetDlgItem(question(), IDYES), nullptr);
  EXPECT_EQ(GetDlgItem(question(), IDCANCEL), nullptr);
  EXPECT_FALSE(IsWindowEnabled(window()));
  answer(IDNO);
  expectAllAsItWas();
  EXPECT_TRUE(IsWindowEnabled(window()));
  retype(kSecondsBox, L"7");
  press(kCloseButton);
  EXPECT_TRUE(closes()) << "corrected now";
  EXPECT_EQ(program.settings().duration, 907u);
}

TEST_F(SettingsCloseTest, YesThrowsTheInputAway) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  press(kCloseButton);
  ASSERT_TRUE(asks());
  answer(IDYES);
  ASSERT_TRUE(closes());
  EXPECT_EQ(program.settings().duration, 900u);
  EXPECT_EQ(program.text(), L"15:00");
  program.command(kCommandOpenSettings);
  ASSERT_TRUE(waitUntil([&] { return window() != nullptr; }));
  EXPECT_EQ(text(kSecondsBox), L"0");
  EXPECT_FALSE(isRed(kSecondsBox));
  EXPECT_TRUE(program.closeSettings()) << "and it asks no more";
}

TEST_F(SettingsCloseTest, EveryWayOutAsksAndTheKeyboardAnswers) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  pressKeys(VK_ESCAPE);
  ASSERT_TRUE(asks());
  pressKeys(VK_TAB);
  pressKeys(VK_SPACE);
  ASSERT_TRUE(waitUntil([&] { return question() == nullptr; }));
  expectAllAsItWas();
  ASSERT_NO_FATAL_FAILURE(comeToFront());
  pressKeys(VK_F4, {VK_MENU});
  ASSERT_TRUE(asks());
  pressKeys(VK_RETURN);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settings().duration, 900u);
}

TEST_F(SettingsCloseTest, EscapeDoesNotAnswerTheQuestion) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  pressKeys(VK_ESCAPE);
  ASSERT_TRUE(asks());
  pressKeys(VK_ESCAPE);
  pressKeys(VK_TAB);
  pressKeys(VK_RETURN);
  ASSERT_TRUE(waitUntil([&] { return question() == nullptr; }));
  expectAllAsItWas();
}

TEST_F(SettingsCloseTest, TheWindowIsLaidOutForANewSizeWhileItAsks) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  press(kCloseButton);
  ASSERT_TRUE(asks());
  resize({scaled(900), scaled(620)});
  const int right = toUnits(clientSize().width, dpi());
  EXPECT_TRUE(waitUntil([&] { return rect(kCloseButton).left == scaled(right - 114); }));
  answer(IDNO);
  expectAllAsItWas();
}

TEST_F(SettingsCloseTest, TheClockGoesOnWhileItAsks) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  press(kToggleButton);
  ASSERT_TRUE(reads(kToggleButton, L"暂停"));
  press(kCloseButton);
  ASSERT_TRUE(asks());
  EXPECT_TRUE(program.isCounting());
  EXPECT_NE(question(), nullptr);
}

TEST_F(SettingsCloseTest, WhatIsRightIsAppliedOnTheWayOutWithoutAQuestion) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  retype(kMinutesBox, L"7");
  press(kCloseButton);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settings().duration, 420u);
}

TEST_F(SettingsCloseTest, AnEmptiedNumberIsZeroByTheTimeTheButtonIsReached) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  retype(kMinutesBox, L"");
  press(kCloseButton);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settings().duration, 0u);
}

TEST_F(SettingsCloseTest, AnEmptiedNumberIsNotAppliedByTheQuestionAboutIt) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  retype(kMinutesBox, L"");
  ASSERT_TRUE(reads(kMinutesBox, L""));
  pressKeys(VK_ESCAPE);
  ASSERT_TRUE(asks());
  EXPECT_EQ(program.settings().duration, 900u);
  answer(IDYES);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settings().duration, 900u);
}

TEST_F(SettingsCloseTest, APortThatWasNotAppliedIsAskedAbout) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  const uint32_t before = program.settings().remotePort;
  turnTo(3);
  retype(kPortBox, L"32767");
  press(kCloseButton);
  ASSERT_TRUE(asks());
  answer(IDNO);
  EXPECT_EQ(text(kPortBox), L"32767");
  press(kCloseButton);
  ASSERT_TRUE(asks());
  answer(IDYES);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settings().remotePort, before);
}

TEST_F(SettingsCloseTest, APathThatIsNoneIsThrownAwayAndTheOldOneStays) {
  Settings settings = quiet();
  settings.sound = true;
  settings.soundFile = u"C:\\windows\\win.ini";
  ASSERT_NO_FATAL_FAILURE(open(settings));
  retype(kSoundFileBox, L"C:\\gone.wav");
  press(kCloseButton);
  ASSERT_TRUE(asks());
  answer(IDYES);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settings().soundFile, settings.soundFile);
}

TEST_F(SettingsCloseTest, TheEndOfTheProgramAsksTooAndNoKeepsItRunning) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  ASSERT_TRUE(asks());
  EXPECT_EQ(questionText(), L"部分输入无效或保存失败，尚未生效。放弃这些输入并退出？");
  answer(IDNO);
  expectAllAsItWas();
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  ASSERT_TRUE(asks());
  answer(IDYES);
  DWORD exitCode = 99;
  EXPECT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(exitCode, 0u);
  EXPECT_EQ(program.settings().duration, 900u);
}

TEST_F(SettingsCloseTest, ClosingTheClockAsksJustAsTheMenuDoes) {
  ASSERT_NO_FATAL_FAILURE(openWithWrongInput());
  PostMessageW(program.clock(), WM_CLOSE, 0, 0);
  ASSERT_TRUE(asks());
  EXPECT_EQ(questionText(), L"部分输入无效或保存失败，尚未生效。放弃这些输入并退出？");
  answer(IDNO);
  expectAllAsItWas();
  EXPECT_TRUE(IsWindow(program.clock()));
  PostMessageW(program.clock(), WM_CLOSE, 0, 0);
  ASSERT_TRUE(asks());
  answer(IDYES);
  DWORD exitCode = 99;
  EXPECT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(exitCode, 0u);
}

}  // namespace
}  // namespace mrl
