// Compares the settings window on the screen with its drawing, in each state of its controls.
#include "windows/settings_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "settings_window/layout.h"
#include "settings_window/qr_code.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsPictureTest : public SettingsPicture {
 protected:
  void openPictured(const Settings& settings) {
    moveTo({0, 0});
    ASSERT_NO_FATAL_FAILURE(open(settings));
  }
  void show(int page) const {
    ask(window(), WM_COMMAND, static_cast<WPARAM>(kFirstSection + page));
    ASSERT_TRUE(waitUntil([&] { return this->page() == page && showsOnly(page); }));
  }
  void setText(int id, const std::wstring& text) const {
    ask(control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
  void expectWithFocus(int id) {
    SCOPED_TRACE(id);
    ASSERT_NO_FATAL_FAILURE(giveFocus(id));
    expectAsDrawn();
  }
  void expectUnderTheMouse(int id) {
    SCOPED_TRACE(id);
    moveTo(middleOf(id));
    ASSERT_TRUE(waitUntil([&] { return isMarked(id, L"Marlune.Hover"); }));
    expectAsDrawn();
  }
  void expectHeldDown(int id) {
    SCOPED_TRACE(id);
    ask(control(id), BM_SETSTATE, TRUE);
    expectAsDrawn();
    ask(control(id), BM_SETSTATE, FALSE);
  }
};

TEST_F(SettingsPictureTest, EveryPageLooksAsDrawnAtItsTopAndAtItsEnd) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  for (int page = 0; page < kPageCount; ++page) {
    ASSERT_NO_FATAL_FAILURE(show(page));
    expectAsDrawn();
    toEnd();
    expectAsDrawn();
  }
}

TEST_F(SettingsPictureTest, WhatIsSwitchedTheOtherWayLooksIt) {
  const Settings usual = quiet();
  Settings other = usual;
  for (bool Settings::*field :
       {&Settings::down, &Settings::autoMode, &Settings::perSlide, &Settings::hideZero,
        &Settings::sound, &Settings::blink, &Settings::switchPpt, &Settings::transparent}) {
    other.*field = !(usual.*field);
  }
  for (PromptStage Settings::*stage : {&Settings::prompt1, &Settings::prompt2}) {
    (other.*stage).enabled = !(usual.*stage).enabled;
    (other.*stage).sound = !(usual.*stage).sound;
  }
  ASSERT_NO_FATAL_FAILURE(openPictured(other));
  for (int page = 0; page < 3; ++page) {
    ASSERT_NO_FATAL_FAILURE(show(page));
    expectAsDrawn({.isTextAlone = other.transparent});
    toEnd();
    expectAsDrawn({.isTextAlone = other.transparent});
  }
}

TEST_F(SettingsPictureTest, TheKeyboardsRingLooksAsDrawnOnEachKind) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  for (const int id : std::initializer_list<int>{kFirstSection, kFirstSection + 2, kToggleButton,
                                                 kResetButton, kModeCombo, kCloseButton,
                                                 kMinutesBox, kDownRadio, kPerSlideCheck}) {
    expectWithFocus(id);
  }
  ASSERT_NO_FATAL_FAILURE(show(1));
  for (const int id : {kPickAlertButton, kAlertBox, kPreviewPhaseCombo}) expectWithFocus(id);
  ASSERT_NO_FATAL_FAILURE(show(3));
  for (const int id : {kAddressBox, kApplyPortButton}) expectWithFocus(id);
  ASSERT_NO_FATAL_FAILURE(show(4));
  expectWithFocus(kFileList);
}

TEST_F(SettingsPictureTest, AButtonHeldDownLooksAsDrawn) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  for (const int id : {kToggleButton, kResetButton, kCloseButton}) expectHeldDown(id);
  ASSERT_NO_FATAL_FAILURE(show(3));
  for (const int id : {kServiceButton, kApplyPortButton, kCheckNetworkButton}) expectHeldDown(id);
}

TEST_F(SettingsPictureTest, WhatTheMouseIsOverLooksAsDrawn) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  for (const int id : std::initializer_list<int>{kFirstSection, kFirstSection + 3, kToggleButton,
                                                 kResetButton, kModeCombo, kCloseButton, kUpRadio,
                                                 kHideZeroCheck, kMinutesBox}) {
    expectUnderTheMouse(id);
  }
  moveTo({0, 0});
  ASSERT_TRUE(waitUntil([&] { return !isMarked(kMinutesBox, L"Marlune.Hover"); }));
  expectAsDrawn();
}

TEST_F(SettingsPictureTest, ADroppedListLooksAsDrawn) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  ASSERT_NO_FATAL_FAILURE(show(1));
  for (const int combo : {kModeCombo, kPreviewPhaseCombo}) {
    SCOPED_TRACE(combo);
    for (const WPARAM row : {1U, 0U}) {
      ask(control(combo), CB_SHOWDROPDOWN, TRUE);
      ask(control(combo), CB_SETCURSEL, row);
      expectDroppedAsDrawn(combo);
      ask(control(combo), CB_SHOWDROPDOWN, FALSE);
    }
  }
}

TEST_F(SettingsPictureTest, TheFilesLookAsDrawnWhetherTimedExcludedOrSelected) {
  const TemporaryFolder decks(L"pictured decks");
  const std::wstring tooLong = L"a" + std::wstring(70, L'长') + L".pptx";
  for (const std::wstring& name : {tooLong, std::wstring(L"b & c.dps"), std::wstring(L"d.ppt")}) {
    std::ofstream(std::filesystem::path(decks.path() + L"\\" + name)) << "x";
  }
  Settings settings = quiet();
  settings.pptFolder = u16From(decks.path());
  settings.skipList = {u16From(decks.path() + L"\\b & c.dps")};
  ASSERT_NO_FATAL_FAILURE(openPictured(settings));
  ASSERT_NO_FATAL_FAILURE(show(4));
  ASSERT_EQ(ask(control(kFileList), LB_GETCOUNT), 3);
  expectAsDrawn({.boxInPieces = kFolderBox});
  for (const WPARAM row : {1U, 2U}) {
    ask(control(kFileList), LB_SETCURSEL, row);
    expectAsDrawn({.boxInPieces = kFolderBox});
  }
}

TEST_F(SettingsPictureTest, ABoxThatHoldsNoValidInputIsFramedInRedWithTheKeyboardToo) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  setText(kSecondsBox, L"99");
  ASSERT_TRUE(becomesRed(kSecondsBox));
  expectAsDrawn({.hasUnsavedInput = true});
  ASSERT_NO_FATAL_FAILURE(giveFocus(kSecondsBox));
  expectAsDrawn({.hasUnsavedInput = true});
  setText(kSecondsBox, L"9");
  ASSERT_TRUE(becomesRed(kSecondsBox, false));
  ASSERT_TRUE(says(kApplied));
  expectAsDrawn();
}

TEST_F(SettingsPictureTest, AColourThatIsBeingTypedIsShownOnItsButton) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  ASSERT_NO_FATAL_FAILURE(show(1));
  setText(kForegroundBox, L"#C03");
  setText(kBackgroundBox, L"#12AB34");
  expectAsDrawn({.hasUnsavedInput = true});
}

TEST_F(SettingsPictureTest, TheRunningServiceLooksAsDrawnWithItsCode) {
  ASSERT_NO_FATAL_FAILURE(openPictured({}));
  ASSERT_NO_FATAL_FAILURE(show(3));
  const std::wstring addresses = text(kAddressBox);
  QrMatrix code;
  ASSERT_TRUE(encodeQrCode(u16From(addresses.substr(0, addresses.find(L"\r\n"))), code));
  const QrMatrix upsideDown(code.rbegin(), code.rend());
  ASSERT_NE(code, upsideDown) << "a code like this would prove less";
  expectAsDrawn();
}

TEST_F(SettingsPictureTest, TheRunningTimerLooksAsDrawn) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  program.command(kCommandToggleTimer);
  ASSERT_TRUE(waitUntil([&] { return isMarked(kToggleButton, L"Marlune.Active"); }));
  expectAsDrawn();
  expectHeldDown(kToggleButton);
}

TEST_F(SettingsPictureTest, ALongStatusStandsOnTwoLinesInTheMiddleOfItsPlace) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  setText(kStatusText, L"保存到 C:\\Talks & more 失败。" + std::wstring(60, L'长') + L"。");
  expectAsDrawn();
}

TEST_F(SettingsPictureTest, TheSmallestWindowLooksAsDrawn) {
  ASSERT_NO_FATAL_FAILURE(openPictured(quiet()));
  resize({scaled(900), scaled(620)});
  for (int page = 0; page < kPageCount; ++page) {
    ASSERT_NO_FATAL_FAILURE(show(page));
    expectAsDrawn();
  }
}

}  // namespace
}  // namespace mrl
