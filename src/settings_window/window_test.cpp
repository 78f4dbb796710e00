#include "settings_window/window.h"

#include "settings_window/commands.h"
#include "settings_window/fixture.h"
#include "settings_window/layout.h"
#include "settings_window/preview.h"

namespace mrl {
namespace {

constexpr char16_t kAskClose[] = u"部分输入无效或保存失败，尚未生效。放弃这些输入并关闭？";
constexpr char16_t kAskExit[] = u"部分输入无效或保存失败，尚未生效。放弃这些输入并退出？";

class SettingsWindowTest : public SettingsFixture {
 protected:
  static constexpr HeldKeys kControl{.control = true};

  void expectAsked(const char16_t* text) {
    ASSERT_EQ(dialogs().questions.size(), 1u);
    EXPECT_EQ(dialogs().questions[0],
              (SettingsDialogsFake::Message{text, u"Marlune", DialogIcon::Question}));
  }
};

TEST_F(SettingsWindowTest, ANewWindowStandsInTheMiddleOfTheClocksMonitor) {
  EXPECT_EQ(view().windowRect, (Rect{440, 150, 1480, 890}));
  EXPECT_EQ(view().calls.back(), "show");
}

TEST_F(SettingsWindowTest, ItGrowsWithTheResolution) {
  closeSettingsWindow(app);
  clockWindow.windowDpi = 144;
  clockWindow.workArea = {0, 0, 3840, 2080};
  openSettingsWindow(app);
  EXPECT_EQ(view().windowRect.width(), 1560);
  EXPECT_EQ(view().windowRect.height(), 1110);
}

TEST_F(SettingsWindowTest, OnASmallScreenItLeavesAMargin) {
  closeSettingsWindow(app);
  clockWindow.workArea = {100, 50, 900, 650};
  openSettingsWindow(app);
  EXPECT_EQ(view().windowRect, (Rect{112, 62, 888, 638}));
  closeSettingsWindow(app);
  clockWindow.windowDpi = 144;
  clockWindow.workArea = {0, 0, 1200, 900};
  openSettingsWindow(app);
  EXPECT_EQ(view().windowRect, (Rect{18, 18, 1182, 882}));
}

TEST_F(SettingsWindowTest, ANewWindowShowsTheLiveRecord) {
  EXPECT_EQ(view().text(kMinutesBox), u"15");
  EXPECT_EQ(view().text(kSecondsBox), u"0");
  EXPECT_TRUE(view().isChecked(kDownRadio));
  EXPECT_FALSE(view().isChecked(kUpRadio));
  EXPECT_EQ(view().text(kForegroundBox), u"#FAFCFF");
  EXPECT_EQ(view().row(kTabs), 0);
  EXPECT_EQ(view().row(kPreviewPhaseCombo), 0);
  EXPECT_EQ(view().text(kAddressBox), u"遥控服务未启动，请启动或恢复服务。");
  EXPECT_EQ(view().text(kFileCount), u"请选择 PPT 文件夹");
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_FALSE(app.form.controlsSuppressed);
  EXPECT_EQ(status(), u"设置自动生效");
}

TEST_F(SettingsWindowTest, ANewWindowShowsWhatWasToldBefore) {
  closeSettingsWindow(app);
  setStatus(app, u"什么");
  openSettingsWindow(app);
  EXPECT_EQ(status(), u"什么");
}

TEST_F(SettingsWindowTest, ARefusedFileIsToldInTheStatusLine) {
  closeSettingsWindow(app);
  clockWindow.exists = false;
  files().putFile(kSettingsPath, "junk");
  start();
  ASSERT_FALSE(app.settingsWritable);
  openSettingsWindow(app);
  EXPECT_FALSE(status().empty());
  EXPECT_EQ(status(), app.lastError);
  EXPECT_NE(status(), u"设置自动生效");
}

TEST_F(SettingsWindowTest, ASecondOpenRaisesTheWindowWithItsInput) {
  enter(kSecondsBox, u"70");
  selectPage(app, 3);
  runCommand(app, kCommandOpenSettings);
  EXPECT_EQ(view().creations, 1);
  EXPECT_EQ(view().calls.back(), "restore");
  EXPECT_EQ(view().text(kSecondsBox), u"70");
  EXPECT_EQ(app.form.page, 3);
  EXPECT_TRUE(isPending(kMinutesBox));
}

TEST_F(SettingsWindowTest, AWindowOpenedAnewHasAFreshForm) {
  selectPage(app, 3);
  app.form.previewPhase = 2;
  app.form.previewScroll = {5, 5};
  app.form.customColours[0] = 7;
  closeSettingsWindow(app);
  openSettingsWindow(app);
  EXPECT_EQ(app.form.page, 0);
  EXPECT_EQ(app.form.previewPhase, 0);
  EXPECT_EQ(app.form.previewScroll, Point{});
  EXPECT_EQ(app.form.customColours[0], 7u);  // the user's own colours are kept
}

TEST_F(SettingsWindowTest, AWindowThatCanNotBeMadeIsNotOpen) {
  closeSettingsWindow(app);
  view().createFails = true;
  openSettingsWindow(app);
  EXPECT_FALSE(app.form.isOpen);
  EXPECT_FALSE(app.form.controlsSuppressed);
  view().createFails = false;
  openSettingsWindow(app);
  EXPECT_TRUE(app.form.isOpen);
}

TEST_F(SettingsWindowTest, ClosingWithoutInputAsksNothing) {
  EXPECT_TRUE(closeSettingsWindow(app));
  EXPECT_TRUE(dialogs().questions.empty());
  EXPECT_FALSE(view().isOpen());
  EXPECT_FALSE(app.form.isOpen);
}

TEST_F(SettingsWindowTest, ClosingAppliesWhatIsValid) {
  view().type(kMinutesBox, u"20");
  EXPECT_TRUE(closeSettingsWindow(app));
  EXPECT_EQ(saved().duration, 1200u);
}

TEST_F(SettingsWindowTest, NoToTheQuestionLeavesAllAsItWas) {
  enter(kSecondsBox, u"70");
  EXPECT_FALSE(closeSettingsWindow(app));
  expectAsked(kAskClose);
  EXPECT_TRUE(view().isOpen());
  EXPECT_TRUE(isRed(kSecondsBox));
  EXPECT_EQ(app.form.pendingEdits.at(kMinutesBox), kNotDue);
}

TEST_F(SettingsWindowTest, TheQuestionDoesNotApplyWhatItAsksAbout) {
  view().type(kMinutesBox, u"");
  EXPECT_FALSE(closeSettingsWindow(app));
  EXPECT_EQ(view().text(kMinutesBox), u"");
  EXPECT_TRUE(isPending(kMinutesBox));
  EXPECT_EQ(saved().duration, 900u);
}

TEST_F(SettingsWindowTest, YesDiscardsTheInput) {
  enter(kFolderBox, u"C:\\none");
  dialogs().answersYes = true;
  EXPECT_TRUE(closeSettingsWindow(app));
  expectAsked(kAskClose);
  EXPECT_EQ(app.settings.pptFolder, u"");
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_FALSE(app.form.settingsDirty);
}

TEST_F(SettingsWindowTest, ABoxThatLosesTheFocusInTheEndAppliesNothing) {
  view().type(kMinutesBox, u"");
  dialogs().answersYes = true;
  EXPECT_TRUE(closeSettingsWindow(app));
  EXPECT_EQ(saved().duration, 900u);
}

TEST_F(SettingsWindowTest, APortThatWasNotAppliedIsAskedFor) {
  view().type(kPortBox, u"30000");
  EXPECT_FALSE(closeSettingsWindow(app));
  expectAsked(kAskClose);
  dialogs().answersYes = true;
  EXPECT_TRUE(closeSettingsWindow(app));
  EXPECT_EQ(saved().remotePort, 22222u);
  openSettingsWindow(app);
  EXPECT_FALSE(app.form.portDirty);
}

TEST_F(SettingsWindowTest, AFailedSaveIsAskedFor) {
  failSaves();
  view().type(kMinutesBox, u"20");
  EXPECT_FALSE(closeSettingsWindow(app));
  expectAsked(kAskClose);
}

TEST_F(SettingsWindowTest, EscapeAndTheCloseButtonClose) {
  onSettingsCommand(app, kEscapeKey, kClicked);
  EXPECT_FALSE(app.form.isOpen);
  openSettingsWindow(app);
  view().click(kCloseButton);
  EXPECT_FALSE(app.form.isOpen);
}

TEST_F(SettingsWindowTest, ExitAppliesWhatIsValidAndTakesTheWindowAlong) {
  view().type(kMinutesBox, u"20");
  runCommand(app, kCommandExit);
  EXPECT_EQ(saved().duration, 1200u);
  EXPECT_FALSE(clockWindow.exists);
  onClockDestroyed(app);
  EXPECT_FALSE(view().isOpen());
  EXPECT_TRUE(loop.hasQuit);
}

TEST_F(SettingsWindowTest, ExitAsksAboutUnfinishedInputAndNoStopsIt) {
  enter(kSecondsBox, u"70");
  runCommand(app, kCommandExit);
  expectAsked(kAskExit);
  EXPECT_TRUE(clockWindow.exists);
  dialogs().answersYes = true;
  runCommand(app, kCommandExit);
  EXPECT_FALSE(clockWindow.exists);
}

TEST_F(SettingsWindowTest, ExitWithoutAWindowAsksNothing) {
  closeSettingsWindow(app);
  app.form.settingsDirty = true;
  runCommand(app, kCommandExit);
  EXPECT_FALSE(clockWindow.exists);
  EXPECT_TRUE(dialogs().questions.empty());
}

TEST_F(SettingsWindowTest, APageBeginsAtItsTop) {
  app.form.scrollPosition = 40;
  app.form.wheelRemainder = 3;
  selectPage(app, 2);
  EXPECT_EQ(app.form.page, 2);
  EXPECT_EQ(view().row(kTabs), 2);
  EXPECT_EQ(app.form.scrollPosition, 0);
  EXPECT_EQ(app.form.wheelRemainder, 0);
}

TEST_F(SettingsWindowTest, APageOutOfRangeCountsAsTheNearest) {
  selectPage(app, 9);
  EXPECT_EQ(app.form.page, 4);
  selectPage(app, -1);
  EXPECT_EQ(app.form.page, 0);
}

TEST_F(SettingsWindowTest, TheSidebarSelectsThePages) {
  for (const int page : {4, 3, 2, 1, 0}) {
    view().click(kFirstSection + page);
    EXPECT_EQ(app.form.page, page);
  }
}

TEST_F(SettingsWindowTest, CtrlAndADigitSelectAPageAndItsButton) {
  for (const int page : {4, 3, 2, 1, 0}) {
    app.form.scrollPosition = 40;
    EXPECT_TRUE(onSettingsKey(app, '1' + page, kControl));
    EXPECT_EQ(app.form.page, page);
    EXPECT_EQ(app.form.scrollPosition, 0);
    EXPECT_TRUE(view().hasFocus(kFirstSection + page));
  }
}

TEST_F(SettingsWindowTest, CtrlSForcesWhatIsPending) {
  view().type(kMinutesBox, u"20");
  EXPECT_TRUE(onSettingsKey(app, 'S', kControl));
  EXPECT_EQ(saved().duration, 1200u);
  EXPECT_EQ(view().invalidated.back(), kPreviewHost);
}

TEST_F(SettingsWindowTest, OtherKeysWithCtrlAreLeftAlone) {
  for (const int key : {0x30, 0x36, 0x41, 0x52, 0x70})
    EXPECT_FALSE(onSettingsKey(app, key, kControl)) << key;
}

TEST_F(SettingsWindowTest, TheStatusIsKeptAndShown) {
  setStatus(app, u"好");
  EXPECT_EQ(status(), u"好");
  EXPECT_EQ(app.lastError, u"好");
}

TEST_F(SettingsWindowTest, LeavingResizeModeShowsTheNewSizeAndBooksNothing) {
  runCommand(app, kCommandToggleResizeMode);
  clockWindow.place = {0, 0, 400, 200};
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_EQ(view().text(kWidthBox), u"400");
  EXPECT_EQ(view().text(kHeightBox), u"200");
  EXPECT_EQ(app.form.settings.windowWidth, 400u);
  EXPECT_EQ(preview().placed.width(), 400);
  EXPECT_TRUE(app.form.pendingEdits.empty());
}

TEST_F(SettingsWindowTest, AFailedSaveOfTheSizeLeavesTheBoxes) {
  runCommand(app, kCommandToggleResizeMode);
  clockWindow.place = {0, 0, 400, 200};
  failSaves();
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_EQ(view().text(kWidthBox), u"183");
}

TEST_F(SettingsWindowTest, TheDefaultSizeIsShown) {
  enter(kWidthBox, u"400");
  runCommand(app, kCommandDefaultSize);
  EXPECT_EQ(view().text(kWidthBox), u"183");
  EXPECT_EQ(view().text(kHeightBox), u"82");
  EXPECT_EQ(app.form.settings.windowWidth, 183u);
}

TEST_F(SettingsWindowTest, TheModeBoxFollowsTheCommandsAndGivesThem) {
  runCommand(app, kCommandManualMode);
  EXPECT_EQ(view().row(kModeCombo), 1);
  EXPECT_FALSE(app.form.settings.autoMode);
  view().select(kModeCombo, 0);
  EXPECT_TRUE(saved().autoMode);
  view().select(kModeCombo, 1);
  EXPECT_FALSE(saved().autoMode);
}

TEST_F(SettingsWindowTest, AModeThatCouldNotBeSavedIsTakenBack) {
  failSaves();
  view().select(kModeCombo, 1);
  EXPECT_TRUE(app.settings.autoMode);
  EXPECT_EQ(view().row(kModeCombo), 0);
}

TEST_F(SettingsWindowTest, KeysThatTypeCharactersTurnNoPage) {
  view().type(kMinutesBox, u"20");
  for (const HeldKeys held : {HeldKeys{}, HeldKeys{.alt = true}, HeldKeys{true, true}}) {
    EXPECT_FALSE(onSettingsKey(app, '3', held));
    EXPECT_FALSE(onSettingsKey(app, 'S', held));
  }
  EXPECT_EQ(app.form.page, 0);
  EXPECT_TRUE(isPending(kMinutesBox));
}

TEST_F(SettingsWindowTest, WhatIsShownAlreadyIsNotWrittenAgain) {
  runFor(1000);
  view().written.clear();
  runFor(1000);
  refreshPreview(app);
  EXPECT_EQ(view().written, std::vector<int>{});
  setTextIfChanged(app, kTimerLine, u"1");
  setTextIfChanged(app, kTimerLine, u"1");
  EXPECT_EQ(view().written, std::vector<int>{kTimerLine});
}

TEST_F(SettingsWindowTest, CtrlAndADigitForceNothingByThemselves) {
  view().click(kPerSlideCheck);  // no box has the focus
  queueEdit(app, kMinutesBox, kEditDelayMs);
  view().texts[kMinutesBox] = u"20";
  EXPECT_TRUE(onSettingsKey(app, '3', kControl));
  EXPECT_EQ(app.form.page, 2);
  EXPECT_TRUE(isPending(kMinutesBox));
  EXPECT_EQ(saved().duration, 900u);
  runFor(800);
  EXPECT_EQ(saved().duration, 1200u);
}

TEST_F(SettingsWindowTest, CtrlAndADigitLeaveABoxAsTheTabKeyDoes) {
  view().type(kMinutesBox, u"20");
  app.form.scrollPosition = 40;
  EXPECT_TRUE(onSettingsKey(app, '3', kControl));
  EXPECT_EQ(app.form.page, 2);
  EXPECT_EQ(app.form.scrollPosition, 0);
  EXPECT_EQ(saved().duration, 1200u);
  EXPECT_EQ(status(), kApplied);
}

TEST_F(SettingsWindowTest, CtrlAndADigitLeaveWrongInputRed) {
  view().type(kSecondsBox, u"70");
  EXPECT_TRUE(onSettingsKey(app, '3', kControl));
  EXPECT_TRUE(isRed(kSecondsBox));
  EXPECT_EQ(view().text(kSecondsBox), u"70");
  EXPECT_EQ(app.form.pendingEdits.at(kMinutesBox), kNotDue);
}

TEST_F(SettingsWindowTest, EachPageShowsItsOwnControlsAndTheFrames) {
  for (const int page : {4, 3, 2, 1, 0}) {
    selectPage(app, page);
    for (const Control& control : allControls()) {
      const bool isShown = control.page == page || control.page == kEveryPage;
      EXPECT_EQ(view().hidden.contains(control.id), !isShown) << control.id << " on " << page;
    }
  }
}

TEST_F(SettingsWindowTest, OnASmallScreenThePageScrolls) {
  view().client = {884, 500};
  layoutPage(app);
  EXPECT_EQ(view().bar, (ScrollInfo{.last = 915, .page = 252}));
  scrollPage(app, ScrollStep::End);
  EXPECT_EQ(app.form.scrollPosition, 916 - 252);
}

}  // namespace
}  // namespace mrl
