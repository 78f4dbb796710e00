#include "remote/remote_commands.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "core/app_fixture.h"
#include "core/blackout.h"
#include "core/commands.h"
#include "core/expiry.h"
#include "presentation/catalogue.h"
#include "presentation/show_control.h"
#include "settings_window/control_ids.h"

namespace mrl {
namespace {

constexpr char16_t kUnfinished[] = u"电脑有尚未完成的输入，请先修正或完成输入。";
constexpr char16_t kFileGone[] = u"文件列表已变化或文件不在当前文件夹，请刷新。";
constexpr char16_t kBadDuration[] = u"时长须为 0–59999 秒。";

class RemoteCommandsTest : public AppFixture {
 protected:
  void SetUp() override {
    Settings settings;
    settings.pptFolder = u"C:\\talks";
    files().putFile(kDeck, "");
    files().putFile(kOtherDeck, "");
    startWith(settings);
    app.lastError.clear();
  }

  void send(const std::string& command, const std::string& argument = "") {
    std::u16string error;
    EXPECT_TRUE(runRemoteCommand(app, command, argument, error)) << command << utf8From(error);
    EXPECT_EQ(error, u"");
  }
  /// Expects a refusal that changes neither the settings nor the file.
  void expectRefused(const std::string& command, const std::string& argument,
                     const std::u16string& reason) {
    const Settings record = app.settings;
    const std::string bytes = files().bytesOf(kSettingsPath);
    std::u16string error;
    EXPECT_FALSE(runRemoteCommand(app, command, argument, error)) << command;
    EXPECT_EQ(utf8From(error), utf8From(reason)) << command;
    EXPECT_EQ(app.settings, record);
    EXPECT_EQ(files().bytesOf(kSettingsPath), bytes);
  }
  std::string idOf(const std::u16string& path) { return fileId(path); }
  void runTimer() { startTimer(app.timer, clock.nowMs()); }
};

TEST_F(RemoteCommandsTest, StateDoesNothing) {
  send("state");
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(RemoteCommandsTest, AnUnknownWordIsRefusedAndSoAreTheEmptyOneAndAnotherCase) {
  for (const char* word : {"", "nonsense", "TOGGLE", "Toggle", "toggle ", "controls", "bw"}) {
    expectRefused(word, "", u"未知操作。");
  }
}

TEST_F(RemoteCommandsTest, ToggleStartsAndPausesUnderBothItsNames) {
  for (const char* word : {"toggle", "StartPause"}) {
    resetTimer(app.timer);
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Running);
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Paused);
  }
}

TEST_F(RemoteCommandsTest, ResetStopsUnderBothItsNames) {
  for (const char* word : {"reset", "Reset"}) {
    runTimer();
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Idle);
  }
}

TEST_F(RemoteCommandsTest, PausePausesAndResumesButStartsNothing) {
  for (const char* word : {"pause", "PR"}) {
    resetTimer(app.timer);
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Idle);
    runTimer();
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Paused);
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Running);
  }
}

TEST_F(RemoteCommandsTest, StartStopResetsARunningTimerAndStartsAnyOther) {
  for (const char* word : {"start-stop", "StartStop"}) {
    resetTimer(app.timer);
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Running);
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Idle);
    runTimer();
    clock.advance(3000);
    pauseTimer(app.timer, clock.nowMs());
    send(word);
    EXPECT_EQ(phase(), TimerPhase::Running);
    EXPECT_EQ(elapsedMs(), 3000) << "a paused one goes on";
  }
}

TEST_F(RemoteCommandsTest, BlackNeedsAShowThatIsTimed) {
  for (const char* word : {"black", "BW"}) {
    expectRefused(word, "", kNoShowToBlack);
    EXPECT_FALSE(blackScreen.covering);
  }
  startShow(kDeck);
  waitForPoll();
  app.lastExcluded = true;
  expectRefused("black", "", kNoShowToBlack);
  app.lastExcluded = false;
  for (const char* word : {"black", "BW"}) {
    send(word);
    EXPECT_TRUE(blackScreen.covering);
    send(word);
    EXPECT_FALSE(blackScreen.covering);
  }
}

TEST_F(RemoteCommandsTest, ABlackScreenWhoseShowHasGoneCanStillBeLifted) {
  startShow(kDeck);
  waitForPoll();
  send("black");
  app.lastStatus.running = false;
  send("black");
  EXPECT_FALSE(blackScreen.covering);
}

TEST_F(RemoteCommandsTest, VisibilityPausesARunningTimerWhenItHidesAndResumesNothing) {
  for (const char* word : {"visibility", "SH"}) {
    runTimer();
    send(word);
    EXPECT_FALSE(clockWindow.visible);
    EXPECT_EQ(phase(), TimerPhase::Paused);
    send(word);
    EXPECT_TRUE(clockWindow.visible);
    EXPECT_EQ(phase(), TimerPhase::Paused);
  }
}

TEST_F(RemoteCommandsTest, VisibilityThatShowsAHiddenClockPausesNothing) {
  runTimer();
  send("hide");
  send("visibility");
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(RemoteCommandsTest, ShowAndHideLeaveTheTimerAlone) {
  runTimer();
  send("hide");
  EXPECT_FALSE(clockWindow.visible);
  EXPECT_EQ(phase(), TimerPhase::Running);
  send("hide");
  send("show");
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(RemoteCommandsTest, TheModesAreSavedUnderBothTheirNames) {
  for (const auto& [manual, automatic] :
       {std::pair{"manual", "automatic"}, std::pair{"CtrlHalfHand", "CtrlFullHand"}}) {
    send(manual);
    EXPECT_FALSE(saved().autoMode);
    send(automatic);
    EXPECT_TRUE(saved().autoMode);
  }
}

TEST_F(RemoteCommandsTest, ShineBlinksForThreeSeconds) {
  for (const char* word : {"shine", "Shine"}) {
    app.blink.active = false;
    send(word);
    EXPECT_TRUE(app.blink.active);
    EXPECT_EQ(app.blink.endMs, clock.nowMs() + 3000);
  }
}

TEST_F(RemoteCommandsTest, ADesktopCommandThatFailsIsAnsweredWithTheStateAllTheSame) {
  files().failing.insert(FilesFake::Operation::Replace);
  send("manual");
  EXPECT_TRUE(app.settings.autoMode);
  EXPECT_EQ(app.lastError, u"Atomic configuration replacement failed");
}

TEST_F(RemoteCommandsTest, NextAndPreviousMoveTheShow) {
  startShow(kDeck, 3);
  waitForPoll();
  send("next");
  EXPECT_EQ(program->shows.front()->slide, 4);
  send("previous");
  EXPECT_EQ(program->shows.front()->slide, 3);
}

TEST_F(RemoteCommandsTest, WithoutAShowTheShowCommandsTellWhy) {
  closeDecks();
  for (const char* word : {"next", "previous", "exit", "current"}) {
    std::u16string expected;
    ASSERT_FALSE(sendShowCommand(app.platform.presentation(), app.automation, word, expected));
    expectRefused(word, "", expected);
    EXPECT_NE(expected, u"");
  }
}

TEST_F(RemoteCommandsTest, ExitEndsTheShowAndCloseClosesItsDocument) {
  startShow(kDeck);
  waitForPoll();
  send("exit");
  EXPECT_TRUE(program->shows.empty());
  EXPECT_EQ(program->decks.size(), 1u);
  send("close");
  EXPECT_TRUE(program->decks.empty());
}

TEST_F(RemoteCommandsTest, CloseClosesADocumentInItsShowToo) {
  startShow(kDeck);
  waitForPoll();
  send("close");
  EXPECT_TRUE(program->decks.empty());
}

TEST_F(RemoteCommandsTest, ExitAndCloseEndTheOpenPulseFirst) {
  for (const char* word : {"exit", "close"}) {
    app.startedShow.target = kDeck;
    app.startedShow.pulse.untilMs = app.startedShow.pulse.nextMs = 5;
    std::u16string error;
    (void)runRemoteCommand(app, word, "", error);  // fails: there is no show
    EXPECT_EQ(app.startedShow.target, u"");
    EXPECT_EQ(app.startedShow.pulse.untilMs, 0u);
    EXPECT_EQ(app.startedShow.pulse.nextMs, 0u);
  }
}

TEST_F(RemoteCommandsTest, BeginAndCurrentBringTheirShowToTheFrontForTwoSeconds) {
  startShow(kDeck);
  waitForPoll();
  for (const char* word : {"begin", "current"}) {
    app.startedShow.target.clear();
    app.startedShow.pulse.nextMs = 9;
    send(word);
    EXPECT_EQ(app.startedShow.target, kDeck);
    EXPECT_EQ(app.startedShow.pulse.untilMs, clock.nowMs() + 2000);
    EXPECT_EQ(app.startedShow.pulse.nextMs, 0u);
  }
}

TEST_F(RemoteCommandsTest, AShowWhoseDocumentCannotBeToldIsNotBroughtToTheFront) {
  startShow(kDeck);
  waitForPoll();
  program->shows.front()->deck->path.clear();
  app.startedShow.target = kOtherDeck;
  app.startedShow.pulse.untilMs = 5;
  send("begin");
  EXPECT_EQ(app.startedShow.target, kOtherDeck);
  EXPECT_EQ(app.startedShow.pulse.untilMs, 5u);
}

TEST_F(RemoteCommandsTest, AStartByKeysThatShowsNothingYetBringsNothingToTheFront) {
  program->runs = false;
  outside.addEditWindow(70, u"demo.pptx - PowerPoint");
  for (const char* word : {"begin", "current"}) {
    app.startedShow.target = kOtherDeck;
    app.startedShow.pulse.untilMs = 5;
    send(word);
    EXPECT_EQ(app.startedShow.target, kOtherDeck);
    EXPECT_EQ(app.startedShow.pulse.untilMs, 5u);
  }
}

TEST_F(RemoteCommandsTest, TheOtherShowAndFileCommandsLeaveTheOpenPulseAlone) {
  startShow(kDeck);
  waitForPoll();
  app.startedShow.target = kOtherDeck;
  app.startedShow.pulse.untilMs = app.startedShow.pulse.nextMs = clock.nowMs() + 1000;
  const uint64_t before = app.startedShow.pulse.untilMs;
  send("next");
  send("previous");
  send("open-file", idOf(kDeck));
  send("close-file", idOf(kDeck));
  EXPECT_EQ(app.startedShow.target, kOtherDeck);
  EXPECT_EQ(app.startedShow.pulse.untilMs, before);
  EXPECT_EQ(app.startedShow.pulse.nextMs, before);
}

TEST_F(RemoteCommandsTest, AShowThatCannotBeginBringsNothingToTheFront) {
  startShow(kDeck);
  waitForPoll();
  program->dead = true;
  outside.windows.windows.clear();
  std::u16string error;
  EXPECT_FALSE(runRemoteCommand(app, "begin", "", error));
  EXPECT_NE(error, u"");
  EXPECT_EQ(app.startedShow.target, u"");
}

TEST_F(RemoteCommandsTest, AFileIsPlayedAndBroughtToTheFrontForTwoSeconds) {
  send("file", idOf(kDeck));
  EXPECT_EQ(program->shows.size(), 1u);
  EXPECT_EQ(app.startedShow.target, kDeck);
  EXPECT_EQ(app.startedShow.pulse.untilMs, clock.nowMs() + 2000);
}

TEST_F(RemoteCommandsTest, AFileThatCannotBePlayedEndsTheOldPulseAndTellsWhy) {
  app.startedShow.target = kOtherDeck;
  app.startedShow.pulse.untilMs = clock.nowMs() + 1000;
  program->dead = true;
  std::u16string error;
  EXPECT_FALSE(runRemoteCommand(app, "file", idOf(kDeck), error));
  EXPECT_NE(error, u"");
  EXPECT_EQ(app.startedShow.target, u"");
  EXPECT_EQ(app.startedShow.pulse.untilMs, 0u);
}

TEST_F(RemoteCommandsTest, OpenFileOpensWithoutAShowAndCloseFileCloses) {
  send("open-file", idOf(kDeck));
  EXPECT_EQ(program->decks.size(), 1u);
  EXPECT_TRUE(program->shows.empty());
  EXPECT_EQ(app.startedShow.target, u"");
  send("close-file", idOf(kDeck));
  EXPECT_TRUE(program->decks.empty());
}

TEST_F(RemoteCommandsTest, AnIdThatIsNotInTheFolderIsRefused) {
  std::string upper = idOf(kDeck);
  for (char& digit : upper) digit = static_cast<char>(toupper(digit));
  ASSERT_NE(upper, idOf(kDeck));
  for (const char* word : {"file", "open-file", "close-file", "skip"}) {
    for (const std::string& id : {std::string(), std::string("0123456789abcdef"), upper}) {
      expectRefused(word, id, kFileGone);
    }
  }
}

TEST_F(RemoteCommandsTest, SkipTwiceRestoresTheListApartFromOrder) {
  send("skip", idOf(kDeck));
  EXPECT_EQ(saved().skipList, std::vector<std::u16string>{kDeck});
  send("skip", idOf(kDeck));
  EXPECT_TRUE(saved().skipList.empty());
  app.settings.skipList = {kDeck, kOtherDeck};
  send("skip", idOf(kDeck));
  EXPECT_EQ(saved().skipList, std::vector<std::u16string>{kOtherDeck});
  send("skip", idOf(kDeck));
  EXPECT_EQ(saved().skipList, (std::vector<std::u16string>{kOtherDeck, kDeck}));
}

TEST_F(RemoteCommandsTest, AMissingFileIsToldBeforeUnfinishedInput) {
  app.form.isOpen = true;
  app.form.settingsDirty = true;
  expectRefused("skip", "0123456789abcdef", kFileGone);
}

TEST_F(RemoteCommandsTest, AnOpenSettingsWindowListsTheFileAsItNowIs) {
  runCommand(app, kCommandOpenSettings);
  ASSERT_TRUE(app.form.isOpen);
  const std::vector<std::u16string> before = settingsView.lists[kFileList];
  send("skip", idOf(kDeck));
  const std::vector<std::u16string>& rows = settingsView.lists[kFileList];
  ASSERT_EQ(rows.size(), before.size());
  EXPECT_NE(rows, before);
}

TEST_F(RemoteCommandsTest, ASkipThatCannotBeSavedChangesNothing) {
  files().failing.insert(FilesFake::Operation::Flush);
  expectRefused("skip", idOf(kDeck), u"Configuration flush failed");
}

TEST_F(RemoteCommandsTest, AChangeOfTheSettingsReplacesARefusedFile) {
  app.settingsWritable = false;
  const std::pair<const char*, std::string> changes[] = {{"duration", "60"}, {"countup", ""},
                                                         {"countdown", ""},  {"clock-on", ""},
                                                         {"clock-off", ""},  {"skip", idOf(kDeck)}};
  for (const auto& [word, argument] : changes) {
    files().putFile(kSettingsPath, "something else");
    send(word, argument);
    EXPECT_EQ(saved(), app.settings) << word;
  }
}

TEST_F(RemoteCommandsTest, ASkipBeyondWhatTheFileHoldsIsRefused) {
  for (int number = 0; number < 10000; ++number) {
    app.settings.skipList.push_back(u"C:\\old\\" + decimal(number) + u".pptx");
  }
  expectRefused("skip", idOf(kDeck), u"Too many excluded presentations");
}

TEST_F(RemoteCommandsTest, SettingsAreNotChangedOverUnfinishedInputButTheRestGoesOn) {
  app.form.isOpen = true;
  app.form.settingsDirty = true;
  expectRefused("duration", "60", kUnfinished);
  expectRefused("duration", "nonsense", kUnfinished);
  expectRefused("skip", idOf(kDeck), kUnfinished);
  for (const char* word : {"countdown", "countup", "clock-on", "clock-off"}) {
    expectRefused(word, "", kUnfinished);
  }
  for (const char* word : {"file", "open-file", "close-file"}) send(word, idOf(kDeck));
  send("toggle");
}

TEST_F(RemoteCommandsTest, InputOfAWindowThatHasBeenClosedHoldsNothingUp) {
  app.form.isOpen = false;
  app.form.settingsDirty = true;
  send("duration", "60");
  EXPECT_EQ(saved().duration, 60u);
}

TEST_F(RemoteCommandsTest, AnOpenFormIsFilledAnewAfterEachChange) {
  app.form.isOpen = true;
  send("countup");
  EXPECT_EQ(app.form.settings, app.settings);
  send("duration", "60");
  EXPECT_EQ(app.form.settings, app.settings);
  send("skip", idOf(kDeck));
  EXPECT_EQ(app.form.settings, app.settings);
}

TEST_F(RemoteCommandsTest, ADurationIsANumberUpTo59999) {
  send("duration", "59999");
  EXPECT_EQ(saved().duration, 59999u);
  send("duration", "0");
  EXPECT_EQ(saved().duration, 0u);
  send("duration", "0000000000000060");
  EXPECT_EQ(saved().duration, 60u);
  send("duration", "-0");
  EXPECT_EQ(saved().duration, 0u);
  for (const char* bad : {"", "60000", "-1", "+5", " 5", "5 ", "5s", "4294967301", "-4294967290",
                          "2147483648", "0123456789abcdef", "x"}) {
    expectRefused("duration", bad, kBadDuration);
  }
}

TEST_F(RemoteCommandsTest, ANewDurationRestartsTheCountAndARunningTimerRunsOn) {
  runTimer();
  clock.advance(5000);
  startBlink(app, 0);
  send("duration", "60");
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 0);
  EXPECT_FALSE(app.blink.active);
}

TEST_F(RemoteCommandsTest, ADurationThatCannotBeSavedLeavesTheCountAlone) {
  runTimer();
  clock.advance(5000);
  files().failing.insert(FilesFake::Operation::Create);
  expectRefused("duration", "60", u"Cannot create temporary configuration");
  EXPECT_EQ(elapsedMs(), 5000);
}

TEST_F(RemoteCommandsTest, DirectionAndSystemClockLeaveTheCountAlone) {
  runTimer();
  clock.advance(5000);
  send("countup");
  EXPECT_FALSE(saved().down);
  send("countdown");
  EXPECT_TRUE(saved().down);
  send("clock-on");
  EXPECT_TRUE(saved().machineTime);
  send("clock-off");
  EXPECT_FALSE(saved().machineTime);
  EXPECT_EQ(elapsedMs(), 5000);
}

}  // namespace
}  // namespace mrl
