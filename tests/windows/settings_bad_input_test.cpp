// Invalid input in the real settings window: the box is marked, the error is shown, and the file
// keeps the old value.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

struct NumberBox {
  int page;
  int id;
  const wchar_t* range;
  const wchar_t* tooSmall;  // null if there is no such value
  const wchar_t* tooLarge;
  const wchar_t* fits;
};
constexpr NumberBox kNumberBoxes[] = {
    {0, kMinutesBox, L"0–999", nullptr, L"1000", L"999"},
    {0, kSecondsBox, L"0–59", nullptr, L"70", L"59"},
    {0, kBlinkSecondsBox, L"0–3600", nullptr, L"3601", L"3600"},
    {0, kSoundSecondsBox, L"0–3600", nullptr, L"3601", L"3600"},
    {0, kResetDelayBox, L"0–3600", nullptr, L"3601", L"3600"},
    {1, kWidthBox, L"120–1200", L"119", L"1201", L"120"},
    {1, kHeightBox, L"50–600", L"49", L"601", L"50"},
    {1, kOpacityBox, L"10–100", L"9", L"101", L"10"},
    {1, kBlinkOnBox, L"50–10000", L"49", L"10001", L"50"},
    {1, kBlinkOffBox, L"50–10000", L"49", L"10001", L"50"},
    {2, kFirstStage + kStageMinutes, L"0–999", nullptr, L"1000", L"999"},
    {2, kFirstStage + kStageSeconds, L"0–59", nullptr, L"60", L"59"},
    {2, kFirstStage + kStageBlinkSeconds, L"0–3600", nullptr, L"3601", L"3600"},
    {2, kFirstStage + kStageSoundSeconds, L"0–3600", nullptr, L"3601", L"3600"},
    {2, kSecondStage + kStageMinutes, L"0–999", nullptr, L"1000", L"999"},
    {2, kSecondStage + kStageSeconds, L"0–59", nullptr, L"60", L"59"},
    {2, kSecondStage + kStageBlinkSeconds, L"0–3600", nullptr, L"3601", L"3600"},
    {2, kSecondStage + kStageSoundSeconds, L"0–3600", nullptr, L"3601", L"3600"},
};

struct OtherBox {
  int page;
  int id;
  const wchar_t* error;
};
constexpr wchar_t kNoFile[] = L"文件不存在或无法访问。";
constexpr wchar_t kNoStageSound[] = L"提示音文件不存在或无法访问。";
constexpr OtherBox kPathBoxes[] = {
    {0, kSoundFileBox, kNoFile},
    {0, kSwitchDeckBox, kNoFile},
    {2, kFirstStage + kStageSoundFile, kNoStageSound},
    {2, kSecondStage + kStageSoundFile, kNoStageSound},
    {4, kFolderBox, L"文件夹不存在或无法访问。"},
};
constexpr wchar_t kNoColour[] = L"颜色请输入 #RRGGBB 格式。";
constexpr OtherBox kColourBoxes[] = {
    {1, kForegroundBox, kNoColour},
    {1, kBackgroundBox, kNoColour},
    {1, kAlertBox, kNoColour},
};

constexpr size_t kLongPath = 32'000;
constexpr DWORD kLayoutLimitMs = 60'000;  // very long text takes seconds to lay out
constexpr size_t kBoxHolds = 30'000;      // characters; the most a user can type into a box

class SettingsBadInputTest : public SettingsHand {
 protected:
  void SetUp() override {
    Settings settings = quiet();
    settings.sound = settings.switchPpt = true;
    settings.prompt1.enabled = settings.prompt1.sound = true;
    settings.prompt2.enabled = settings.prompt2.sound = true;
    ASSERT_NO_FATAL_FAILURE(open(settings));
    before = program.settingsBytes();
  }
  void turnToPageOf(int index) const {
    if (page() != index) turnTo(index);
  }
  static std::wstring numberError(const std::wstring& range) {
    return L"请输入有效数值（" + range + L"）。" + kNotApplied;
  }
  /// Commits the box and expects a refusal; `text` is what the box must contain by then.
  void expectRefused(int id, const std::wstring& text, const std::wstring& error) const {
    ASSERT_TRUE(reads(id, text, kLayoutLimitMs));
    ASSERT_TRUE(becomesRed(id, false)) << "a change takes the mark away";
    pressKeys(VK_RETURN);
    EXPECT_TRUE(becomesRed(id));
    EXPECT_TRUE(says(error));
    EXPECT_EQ(program.settingsBytes(), before);
  }
  void expectTypedIsRefused(int id, const std::wstring& text, const std::wstring& error) const {
    SCOPED_TRACE(testing::PrintToString(text));
    ASSERT_NO_FATAL_FAILURE(retype(id, text));
    expectRefused(id, text, error);
  }
  void expectPastedIsRefused(int id, const std::wstring& text, const std::wstring& error) const {
    SCOPED_TRACE(testing::PrintToString(text.substr(0, 40)));
    ASSERT_NO_FATAL_FAILURE(paste(id, text));
    expectRefused(id, text.substr(0, kBoxHolds), error);
  }
  /// Restores the old value.
  void correct(int id, const std::wstring& text) {
    ASSERT_NO_FATAL_FAILURE(retype(id, text));
    ASSERT_TRUE(reads(id, text));
    pressKeys(VK_RETURN);
    EXPECT_TRUE(says(kApplied));
    EXPECT_FALSE(isRed(id));
    before = program.settingsBytes();
  }

  std::string before;
};

TEST_F(SettingsBadInputTest, NoNumberBoxTakesALetterFromTheKeyboard) {
  for (const NumberBox& box : kNumberBoxes) {
    SCOPED_TRACE(box.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(box.page));
    ASSERT_NO_FATAL_FAILURE(retype(box.id, std::wstring(L"a-.,文") + box.fits));
    EXPECT_TRUE(reads(box.id, box.fits));
    pressKeys(VK_RETURN);
    EXPECT_TRUE(says(kApplied));
    EXPECT_FALSE(isRed(box.id));
  }
}

TEST_F(SettingsBadInputTest, EveryNumberOutOfItsRangeIsMarkedAndToldAndNotSaved) {
  for (const NumberBox& box : kNumberBoxes) {
    SCOPED_TRACE(box.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(box.page));
    const std::wstring error = numberError(box.range);
    if (box.tooSmall) expectTypedIsRefused(box.id, box.tooSmall, error);
    expectTypedIsRefused(box.id, box.tooLarge, error);
    expectTypedIsRefused(box.id, L"4294967296", error);
    expectPastedIsRefused(box.id, L"18446744073709551616", error);
    correct(box.id, box.fits);
  }
}

TEST_F(SettingsBadInputTest, WhateverIsPastedIntoANumberBoxIsMarkedAndToldAndNotSaved) {
  for (const NumberBox& box : kNumberBoxes) {
    SCOPED_TRACE(box.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(box.page));
    const std::wstring error = numberError(box.range);
    for (const wchar_t* garbage : {L"gar bage", L"-60", L"60.5", L"0x3C", L"六十"}) {
      expectPastedIsRefused(box.id, garbage, error);
    }
    // Only one box gets a very long text, because of the time that it takes.
    const size_t length = box.id == kMinutesBox ? kLongPath : 100;
    expectPastedIsRefused(box.id, std::wstring(length, L'6'), error);
    correct(box.id, box.fits);
  }
}

TEST_F(SettingsBadInputTest, DigitsOfFullWidthAreANumber) {
  ASSERT_NO_FATAL_FAILURE(paste(kMinutesBox, L"１６"));
  ASSERT_TRUE(reads(kMinutesBox, L"１６"));
  pressKeys(VK_RETURN);
  EXPECT_TRUE(says(kApplied));
  EXPECT_FALSE(isRed(kMinutesBox));
  EXPECT_TRUE(saved(&Settings::duration, 16 * 60));
}

TEST_F(SettingsBadInputTest, AnEmptyNumberWaitsForTheHandToLeaveAndIsZeroThen) {
  for (const NumberBox& box : kNumberBoxes) {
    SCOPED_TRACE(box.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(box.page));
    ASSERT_NO_FATAL_FAILURE(retype(box.id, L""));
    ASSERT_TRUE(reads(box.id, L""));
    pressKeys(VK_RETURN);
    EXPECT_TRUE(says(kTyping));
    EXPECT_FALSE(isRed(box.id));
    EXPECT_EQ(program.settingsBytes(), before);
    pressKeys(VK_TAB);
    EXPECT_TRUE(reads(box.id, L"0"));
    if (box.tooSmall) {
      EXPECT_TRUE(becomesRed(box.id));
      EXPECT_TRUE(says(numberError(box.range)));
      EXPECT_EQ(program.settingsBytes(), before);
    } else {
      EXPECT_TRUE(says(kApplied));
      EXPECT_FALSE(isRed(box.id));
    }
    correct(box.id, box.fits);
  }
}

TEST_F(SettingsBadInputTest, OfAPairTheBoxThatFailedLastIsMarked) {
  ASSERT_NO_FATAL_FAILURE(retype(kMinutesBox, L"1000"));
  ASSERT_NO_FATAL_FAILURE(retype(kSecondsBox, L"70"));
  pressKeys(VK_RETURN);
  EXPECT_TRUE(becomesRed(kSecondsBox));
  EXPECT_TRUE(says(numberError(L"0–59")));
  EXPECT_EQ(program.settingsBytes(), before);
}

TEST_F(SettingsBadInputTest, WhatIsNoPathOfTheKindIsMarkedAndToldAndNotSaved) {
  const std::wstring file = program.folder() + L"\\some file.wav";
  std::ofstream(std::filesystem::path(file)) << "x";
  for (const OtherBox& box : kPathBoxes) {
    SCOPED_TRACE(box.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(box.page));
    const std::wstring error = box.error + std::wstring(kNotApplied);
    const bool isFolder = box.id == kFolderBox;
    const std::wstring& right = isFolder ? program.folder() : file;
    const std::wstring& wrong = isFolder ? file : program.folder();
    for (const std::wstring& path :
         {std::wstring(L"x"), wrong, L"\"" + right + L"\"", right + L"\\gone", std::wstring(L"*?"),
          std::wstring(L"\\\\?\\"), std::wstring(L"http://localhost/a.wav"), std::wstring(L" ")}) {
      expectPastedIsRefused(box.id, path, error);
    }
    expectTypedIsRefused(box.id, L"x y", error);
    expectPastedIsRefused(box.id, L"C:\\" + std::wstring(kLongPath, L'x'), error);
    correct(box.id, right);
    correct(box.id, L"");
  }
}

TEST_F(SettingsBadInputTest, WhatIsNoColourIsMarkedAndToldAndNotSaved) {
  for (const OtherBox& box : kColourBoxes) {
    SCOPED_TRACE(box.id);
    ASSERT_NO_FATAL_FAILURE(turnToPageOf(box.page));
    const std::wstring error = box.error + std::wstring(kNotApplied);
    for (const wchar_t* colour : {L"#GGGGGG", L"#12345", L"#1234567", L"123456", L"0123456",
                                  L"#12 456", L"#-12345", L"#１２３４５６", L"red", L"#", L""}) {
      expectTypedIsRefused(box.id, colour, error);
    }
    correct(box.id, L"#123456");
  }
}

TEST_F(SettingsBadInputTest, AnEndlessColourIsNone) {
  turnTo(1);
  expectPastedIsRefused(kForegroundBox, L"#" + std::wstring(kLongPath, L'F'),
                        kNoColour + std::wstring(kNotApplied));
}

TEST_F(SettingsBadInputTest, AFontNeedsAName) {
  turnTo(1);
  expectTypedIsRefused(kFontNameBox, L"", std::wstring(L"请输入字体名称。") + kNotApplied);
  correct(kFontNameBox, L"Arial");
}

TEST_F(SettingsBadInputTest, AFontThatNobodyHasHarmsNeitherTheClockNorTheFile) {
  turnTo(1);
  const std::wstring endless(kBoxHolds, L'x');
  ASSERT_NO_FATAL_FAILURE(paste(kFontNameBox, endless));
  pressKeys(VK_RETURN);
  EXPECT_TRUE(says(kApplied));
  EXPECT_EQ(program.settings().fontName.size(), kBoxHolds);
  EXPECT_TRUE(program.isVisible());
  press(kToggleButton);
  EXPECT_TRUE(program.isCounting());
}

TEST_F(SettingsBadInputTest, ARedBoxHoldsNothingElseUp) {
  expectTypedIsRefused(kSecondsBox, L"70", numberError(L"0–59"));
  press(kPerSlideCheck);
  EXPECT_TRUE(saved(&Settings::perSlide, true));
  EXPECT_TRUE(says(kOthersWait));
  EXPECT_TRUE(isRed(kSecondsBox));
  EXPECT_EQ(program.settings().duration, 900u);
}

TEST_F(SettingsBadInputTest, AnAbsurdWidthIsMarkedAndTheClockKeepsItsSize) {
  turnTo(1);
  const RECT clock = program.rect();
  expectTypedIsRefused(kWidthBox, L"99999", numberError(L"120–1200"));
  EXPECT_EQ(rect(kPreview).width(), scaled(1200)) << "the preview goes as far as it may";
  const RECT now = program.rect();
  EXPECT_TRUE(EqualRect(&now, &clock));
}

}  // namespace
}  // namespace mrl
