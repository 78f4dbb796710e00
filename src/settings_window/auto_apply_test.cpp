#include "settings_window/auto_apply.h"

#include "base/text.h"
#include "settings_window/commands.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

class AutoApplyTest : public SettingsFixture {
 protected:
  static constexpr char16_t kTooManySeconds[] =
      u"请输入有效数值（0–59）。 此项尚未应用，其他设置可继续使用。";
  static constexpr char16_t kConflict[] = u"设置已生效；与之冲突的结束动作已关闭。";
};

TEST_F(AutoApplyTest, AnEditAppliesWhenNothingWasTypedForAWhile) {
  view().type(kMinutesBox, u"20");
  EXPECT_EQ(status(), kEditing);
  EXPECT_TRUE(app.form.settingsDirty);
  clock.advance(699);
  applyPending(app, false);
  EXPECT_EQ(app.settings.duration, 900u);
  clock.advance(1);
  applyPending(app, false);
  EXPECT_EQ(app.settings.duration, 1200u);
  EXPECT_EQ(status(), kApplied);
  EXPECT_FALSE(app.form.settingsDirty);
}

TEST_F(AutoApplyTest, TheTickAppliesWhatIsDue) {
  view().type(kMinutesBox, u"20");
  runFor(600);
  EXPECT_EQ(app.settings.duration, 900u);
  runFor(200);
  EXPECT_EQ(app.settings.duration, 1200u);
}

TEST_F(AutoApplyTest, QuickTypingMakesOneSave) {
  const int before = saves();
  for (const char16_t* text : {u"1", u"12", u"120"}) {
    view().type(kMinutesBox, text);
    runFor(200);
  }
  runFor(1000);
  EXPECT_EQ(saves() - before, 1);
  EXPECT_EQ(saved().duration, 7200u);
}

TEST_F(AutoApplyTest, EachKeyStartsTheWaitAnew) {
  view().type(kMinutesBox, u"1");
  runFor(600);
  view().type(kMinutesBox, u"12");
  runFor(600);
  EXPECT_EQ(app.settings.duration, 900u);
}

TEST_F(AutoApplyTest, AnEmptiedBoxWaitsForMoreAndCountsAsZeroOnceLeft) {
  view().type(kMinutesBox, u"");
  runFor(800);
  EXPECT_EQ(status(), kTyping);
  EXPECT_FALSE(isRed(kMinutesBox));
  EXPECT_EQ(app.settings.duration, 900u);
  EXPECT_EQ(app.form.pendingEdits.at(kMinutesBox), kNotDue);
  view().leave(kMinutesBox);
  EXPECT_EQ(view().text(kMinutesBox), u"0");
  EXPECT_EQ(app.settings.duration, 0u);
  EXPECT_EQ(status(), kApplied);
}

TEST_F(AutoApplyTest, AnEmptyNeighbourInAPairGetsItsZeroWithoutAnEdit) {
  view().texts[kSecondsBox] = u"";
  enter(kMinutesBox, u"3");
  EXPECT_EQ(view().text(kSecondsBox), u"0");
  EXPECT_EQ(app.settings.duration, 180u);
  EXPECT_TRUE(app.form.pendingEdits.empty());
}

TEST_F(AutoApplyTest, AnInvalidInputStaysAsItWasNamed) {
  enter(kSecondsBox, u"70");
  EXPECT_TRUE(isRed(kSecondsBox));
  EXPECT_FALSE(isRed(kMinutesBox));
  EXPECT_EQ(status(), kTooManySeconds);
  EXPECT_EQ(view().redrawnFrames.back(), kSecondsBox);
  const int before = saves();
  runFor(5000);
  EXPECT_EQ(saves(), before);
  EXPECT_TRUE(isPending(kMinutesBox));
}

TEST_F(AutoApplyTest, AForcedPassTriesAnInvalidInputAgain) {
  files().putFolder(u"C:\\");
  enter(kFolderBox, u"C:\\decks");
  EXPECT_TRUE(isRed(kFolderBox));
  files().putFolder(u"C:\\decks");
  runFor(2000);
  EXPECT_TRUE(isRed(kFolderBox));
  applyPending(app, true);
  EXPECT_FALSE(isRed(kFolderBox));
  EXPECT_EQ(saved().pptFolder, u"C:\\decks");
}

TEST_F(AutoApplyTest, TypingTakesTheRedAwayAtOnce) {
  enter(kSecondsBox, u"70");
  view().redrawnFrames.clear();
  view().type(kSecondsBox, u"7");
  EXPECT_FALSE(isRed(kSecondsBox));
  EXPECT_EQ(view().redrawnFrames, std::vector{int{kSecondsBox}});
  view().type(kSecondsBox, u"8");
  EXPECT_EQ(view().redrawnFrames.size(), 1u);  // there was no mark to clear
}

TEST_F(AutoApplyTest, OneRedBoxHoldsUpNoOtherField) {
  enter(kSecondsBox, u"70");
  view().click(kPerSlideCheck);
  EXPECT_EQ(status(), kOthersWait);
  EXPECT_TRUE(saved().perSlide);
  EXPECT_EQ(saved().duration, 900u);
  EXPECT_TRUE(isRed(kSecondsBox));
  EXPECT_TRUE(app.form.settingsDirty);
}

TEST_F(AutoApplyTest, LeavingAnyBoxForcesAllThatIsPending) {
  view().type(kMinutesBox, u"20");
  view().focus(kResetDelayBox);
  EXPECT_EQ(app.settings.duration, 1200u);
}

TEST_F(AutoApplyTest, EnterForcesAllThatIsPending) {
  view().type(kMinutesBox, u"20");
  EXPECT_TRUE(onSettingsCommand(app, kEnterKey, kClicked));
  EXPECT_EQ(app.settings.duration, 1200u);
}

TEST_F(AutoApplyTest, ApplyAllForcesAllThatIsPending) {
  view().type(kMinutesBox, u"20");
  EXPECT_TRUE(onSettingsCommand(app, kApplyAll, kClicked));
  EXPECT_EQ(app.settings.duration, 1200u);
}

TEST_F(AutoApplyTest, EditsApplyInTheOrderOfTheirIds) {
  view().type(kHeightBox, u"100");
  view().type(kWidthBox, u"9");
  view().type(kMinutesBox, u"20");
  applyPending(app, true);
  EXPECT_EQ(status(), kOthersWait);  // 241 came last, after the red 227
  EXPECT_TRUE(isRed(kWidthBox));
}

TEST_F(AutoApplyTest, BlackTurnsOffWhatItExcludes) {
  view().click(kExitShowCheck);
  view().click(kSwitchCheck);
  view().click(kBlackCheck);
  EXPECT_EQ(status(), kConflict);
  EXPECT_TRUE(saved().black);
  EXPECT_FALSE(saved().exitShow);
  EXPECT_FALSE(saved().switchPpt);
  EXPECT_FALSE(view().isChecked(kExitShowCheck));
  EXPECT_FALSE(view().isChecked(kSwitchCheck));
  EXPECT_FALSE(app.form.settings.switchPpt);
  EXPECT_FALSE(isEnabled(kSwitchDeckBox));
}

TEST_F(AutoApplyTest, LeavingTheShowTurnsBlackOffAndNoMore) {
  view().click(kBlackCheck);
  view().click(kExitShowCheck);
  EXPECT_EQ(status(), kConflict);
  EXPECT_FALSE(saved().black);
  EXPECT_TRUE(saved().exitShow);
  EXPECT_FALSE(saved().switchPpt);
}

TEST_F(AutoApplyTest, AnotherDeckTurnsBlackOff) {
  view().click(kBlackCheck);
  view().click(kSwitchCheck);
  EXPECT_EQ(status(), kConflict);
  EXPECT_FALSE(saved().black);
  EXPECT_TRUE(saved().switchPpt);
}

TEST_F(AutoApplyTest, TakingAnActionAwayIsNoConflict) {
  view().click(kBlackCheck);
  view().click(kBlackCheck);
  EXPECT_EQ(status(), kApplied);
}

TEST_F(AutoApplyTest, AConflictIsToldEvenWhileOtherInputWaits) {
  enter(kSecondsBox, u"70");
  view().click(kExitShowCheck);
  view().click(kBlackCheck);
  EXPECT_EQ(status(), kConflict);
}

TEST_F(AutoApplyTest, AFailedSaveChangesNothingAndTheEditStays) {
  failSaves();
  view().click(kPerSlideCheck);
  EXPECT_TRUE(status().starts_with(u"设置保存失败，此项尚未生效："));
  EXPECT_GT(status().size(), std::u16string_view(u"设置保存失败，此项尚未生效：").size());
  EXPECT_EQ(app.settings, Settings{});
  EXPECT_EQ(app.form.pendingEdits.at(kPerSlideCheck), kNotDue);
  EXPECT_TRUE(app.form.settingsDirty);
  files().failing.clear();
  applyPending(app, true);
  EXPECT_TRUE(saved().perSlide);
  EXPECT_EQ(status(), kApplied);
}

TEST_F(AutoApplyTest, EveryStepOfASaveThatFailsKeepsTheEdit) {
  for (const auto operation : {FilesFake::Operation::Create, FilesFake::Operation::Write,
                               FilesFake::Operation::Flush, FilesFake::Operation::Replace}) {
    openWith(Settings{});
    files().failing = {operation};
    enter(kMinutesBox, u"20");
    EXPECT_TRUE(isPending(kMinutesBox));
    EXPECT_EQ(app.settings.duration, 900u);
    files().failing.clear();
  }
}

TEST_F(AutoApplyTest, AReadOnlyRecordRefusesEveryEditAndStillShowsIt) {
  app.settingsWritable = false;
  const int before = saves();
  for (const Field& field : allFields()) {
    if (field.kind != FieldKind::Flag) continue;
    view().click(field.id);
    EXPECT_EQ(status(), u"配置文件无法读取，未自动覆盖；请先恢复配置文件。");
    EXPECT_EQ(app.form.pendingEdits.at(field.id), kNotDue);
  }
  EXPECT_EQ(saves(), before);
  EXPECT_EQ(app.settings, Settings{});
  EXPECT_TRUE(app.form.settings.perSlide);
}

TEST_F(AutoApplyTest, AMoveOfTheClockThatWasNotSavedGoesAlong) {
  clockWindow.place = {11, 22, 194, 104};
  view().click(kPerSlideCheck);
  EXPECT_EQ(saved().windowX, 11);
  EXPECT_EQ(saved().windowY, 22);
}

TEST_F(AutoApplyTest, TheClockTakesItsNewSizeWithoutMoving) {
  clockWindow.windowDpi = 144;
  const Rect before = clockWindow.place;
  enter(kWidthBox, u"200");
  EXPECT_EQ(clockWindow.place,
            (Rect{before.left, before.top, before.left + 300, before.top + 123}));
  clockWindow.calls.clear();
  enter(kOpacityBox, u"50");
  EXPECT_EQ(std::ranges::count(clockWindow.calls, "resize"), 0);
  EXPECT_EQ(std::ranges::count(clockWindow.calls, "dropRegion"), 1);
  EXPECT_GT(clockWindow.invalidations, 0);
}

TEST_F(AutoApplyTest, AHideRuleCountsAtOnce) {
  EXPECT_TRUE(clockWindow.visible);
  view().click(kHideNoDocumentCheck);
  EXPECT_FALSE(clockWindow.visible);
  view().click(kHideNoDocumentCheck);
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(AutoApplyTest, ATypedPortOnlyWaitsForItsButton) {
  view().type(kPortBox, u"30000");
  EXPECT_EQ(status(), u"端口尚未应用；点击“应用端口”后生效。");
  EXPECT_TRUE(app.form.portDirty);
  EXPECT_TRUE(app.form.settingsDirty);
  EXPECT_TRUE(app.form.pendingEdits.empty());
  view().leave(kPortBox);
  runFor(2000);
  EXPECT_EQ(app.settings.remotePort, 22222u);
  view().type(kPortBox, u"22222");
  EXPECT_EQ(status(), u"端口未更改。");
  EXPECT_FALSE(app.form.settingsDirty);
}

TEST_F(AutoApplyTest, AnUnchangedPortLeavesOtherInputUnfinished) {
  enter(kSecondsBox, u"70");
  view().type(kPortBox, u"22222");
  EXPECT_TRUE(app.form.settingsDirty);
}

TEST_F(AutoApplyTest, ATypedPortKeepsOtherEditsFromBeingTheLastWord) {
  view().type(kPortBox, u"30000");
  view().click(kPerSlideCheck);
  EXPECT_EQ(status(), kOthersWait);
}

TEST_F(AutoApplyTest, ThePortOfAStoppedServiceIsJustSaved) {
  view().type(kPortBox, u"30000");
  view().click(kApplyPortButton);
  EXPECT_EQ(saved().remotePort, 30000u);
  EXPECT_EQ(status(), kApplied);
  EXPECT_FALSE(app.form.portDirty);
}

TEST_F(AutoApplyTest, ThePortOfARunningServiceStopsIt) {
  app.remote.running = true;
  view().type(kPortBox, u"30000");
  view().click(kApplyPortButton);
  EXPECT_EQ(saved().remotePort, 30000u);
  EXPECT_FALSE(app.remote.running);
  EXPECT_EQ(status(), u"端口已更新，遥控服务已停止；请重新启动并授权。");
  EXPECT_EQ(view().text(kServiceButton), u"启动遥控服务");
}

TEST_F(AutoApplyTest, TheSamePortAppliesAndLeavesTheServiceAlone) {
  app.remote.running = true;
  const int before = saves();
  view().click(kApplyPortButton);
  EXPECT_EQ(saves() - before, 1);
  EXPECT_TRUE(app.remote.running);
  EXPECT_EQ(status(), kApplied);
}

TEST_F(AutoApplyTest, AnInvalidPortIsBookedUntilItIsCorrected) {
  view().type(kPortBox, u"80");
  view().click(kApplyPortButton);
  EXPECT_EQ(app.form.pendingEdits.at(kPortBox), kNotDue);
  EXPECT_TRUE(isRed(kPortBox));
}

TEST_F(AutoApplyTest, APortTypedOverARefusedOneWaitsForTheButtonAgain) {
  app.remote.running = true;
  view().type(kPortBox, u"80");
  view().click(kApplyPortButton);
  view().type(kPortBox, u"30000");
  view().leave(kPortBox);
  applyPending(app, true);
  EXPECT_TRUE(app.remote.running);
  EXPECT_EQ(saved().remotePort, 22222u);
  EXPECT_EQ(status(), u"端口尚未应用；点击“应用端口”后生效。");
  EXPECT_TRUE(app.form.settingsDirty);
  EXPECT_FALSE(isRed(kPortBox));
  view().type(kPortBox, u"22222");
  EXPECT_FALSE(app.form.settingsDirty);
}

TEST_F(AutoApplyTest, ThatThePortStoppedTheServiceIsToldEvenWhileOtherInputWaits) {
  enter(kSecondsBox, u"70");
  app.remote.running = true;
  view().type(kPortBox, u"30000");
  view().click(kApplyPortButton);
  EXPECT_EQ(status(), u"端口已更新，遥控服务已停止；请重新启动并授权。");
}

TEST_F(AutoApplyTest, AnEmptiedBoxOfAPairWaitsEvenBesideAWrongOne) {
  view().texts[kSecondsBox] = u"70";
  view().type(kMinutesBox, u"");
  applyPending(app, true);
  EXPECT_EQ(status(), kTyping);
  EXPECT_FALSE(isRed(kSecondsBox));
}

TEST_F(AutoApplyTest, AnIdOfNoFieldLeavesATypedPortWaiting) {
  view().type(kPortBox, u"30000");
  app.form.pendingEdits[kCloseButton] = 1;
  EXPECT_TRUE(applyEdit(app, kCloseButton));
  EXPECT_TRUE(app.form.settingsDirty);
}

TEST_F(AutoApplyTest, AnIdOfNoFieldIsDroppedWithoutASave) {
  const int before = saves();
  for (const int id : {int{kCloseButton}, int{kFirstStageTitle}, kFirstStage + kStageSeconds}) {
    app.form.pendingEdits[id] = 1;
    app.form.settingsDirty = true;
    EXPECT_TRUE(applyEdit(app, id));
    EXPECT_FALSE(app.form.settingsDirty);
  }
  EXPECT_EQ(saves(), before);
}

TEST_F(AutoApplyTest, WhatIsNotBookedIsNotApplied) {
  const int before = saves();
  EXPECT_TRUE(applyEdit(app, kMinutesBox));
  EXPECT_EQ(saves(), before);
}

TEST_F(AutoApplyTest, WithoutAWindowNothingIsBookedOrApplied) {
  closeSettingsWindow(app);
  const int before = saves();
  markEdited(app, kPerSlideCheck, true);
  applyPending(app, true);
  EXPECT_TRUE(applyEdit(app, kPerSlideCheck));
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_EQ(saves(), before);
}

TEST_F(AutoApplyTest, WhileControlsAreFilledTheirChangesMeanNothing) {
  const SuppressControls quiet(app);
  const Settings shown = app.form.settings;
  view().type(kMinutesBox, u"20");
  view().click(kPerSlideCheck);
  markEdited(app, kPerSlideCheck, true);
  applyPending(app, true);
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_EQ(app.form.settings, shown);
  EXPECT_EQ(app.settings, Settings{});
}

TEST_F(AutoApplyTest, TurningTheAutoStartOnStartsTheService) {
  Settings off;
  off.remoteAutoStart = false;
  openWith(off);
  app.remote.running = true;  // a start of a running service succeeds
  view().click(kAutoStartCheck);
  EXPECT_TRUE(saved().remoteAutoStart);
  EXPECT_EQ(status(), kApplied);
}

TEST_F(AutoApplyTest, AStartThatFailsLeavesTheSettingSavedAndHasTheLastWord) {
  Settings off;
  off.remoteAutoStart = false;
  openWith(off);
  view().click(kAutoStartCheck);
  EXPECT_TRUE(saved().remoteAutoStart);
  EXPECT_FALSE(app.remote.running);
  EXPECT_NE(status(), kApplied);
  EXPECT_FALSE(isPending(kAutoStartCheck));
}

TEST_F(AutoApplyTest, ABoxThatIsRightAfterAllLosesItsRedOnTheScreen) {
  enter(kFolderBox, u"C:\\decks");
  ASSERT_TRUE(isRed(kFolderBox));
  files().putFolder(u"C:\\decks");
  view().redrawnFrames.clear();
  applyPending(app, true);
  EXPECT_FALSE(isRed(kFolderBox));
  EXPECT_EQ(view().redrawnFrames, std::vector{int{kFolderBox}});
}

TEST_F(AutoApplyTest, WithNothingPendingTheKeysStillBringTheControlsUpToDate) {
  app.remote.running = true;
  EXPECT_TRUE(onSettingsCommand(app, kApplyAll, kClicked));
  EXPECT_TRUE(isEnabled(kCopyAddressButton));
  app.remote.running = false;
  EXPECT_TRUE(onSettingsKey(app, 'S', {.control = true}));
  EXPECT_FALSE(isEnabled(kCopyAddressButton));
}

TEST_F(AutoApplyTest, TheClockTakesItsNewHeightToo) {
  enter(kHeightBox, u"100");
  EXPECT_EQ(clockWindow.place.height(), 100);
}

TEST_F(AutoApplyTest, AnActionThatIsTakenAwayPutsNothingElseOut) {
  for (const int taken : {kExitShowCheck, kSwitchCheck}) {
    app.settings.black = app.settings.exitShow = app.settings.switchPpt = true;  // however it came
    refillForm(app);
    view().click(taken);
    EXPECT_EQ(status(), kApplied);
    EXPECT_EQ(saved().exitShow, taken != kExitShowCheck);
    EXPECT_EQ(saved().switchPpt, taken != kSwitchCheck);
    EXPECT_TRUE(app.settings.black);
  }
}

}  // namespace
}  // namespace mrl
