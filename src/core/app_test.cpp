#include "core/app.h"

#include <filesystem>

#include "core/app_fixture.h"
#include "core/commands.h"
#include "core/expiry.h"
#include "settings/settings_format.h"
#include "settings_window/control_ids.h"

namespace mrl {
namespace {

class AppTest : public AppFixture {
 protected:
  static constexpr char16_t kRefused[] = u"配置格式无效，已使用默认值；原文件未覆盖。";
  static constexpr char16_t kNoNetwork[] =
      u"未发现已连接的 IPv4 网络，请检查网络连接后重新启动遥控服务。";

  std::optional<int> startWithArguments(const std::vector<std::u16string>& arguments) {
    return startApp(app, arguments, kSettingsPath);
  }
};

TEST_F(AppTest, StartsWithDefaultsAndAWritableFile) {
  EXPECT_EQ(app.settings, Settings{});
  EXPECT_TRUE(app.settingsWritable);
  EXPECT_EQ(app.timer, TimerState{});
  EXPECT_EQ(app.lastStatus, ShowStatus{});
  EXPECT_EQ(app.remote.port, 58718);
}

TEST_F(AppTest, WithoutATestRootTheDefaultPathCounts) {
  start();
  EXPECT_FALSE(app.testMode.isOn);
  EXPECT_EQ(app.settingsPath, kSettingsPath);
}

TEST_F(AppTest, ATestRootThatIsADriveMeansItsCurrentFolder) {
  files().putFile(u"C:settings.dat", "");
  (void)startWithArguments({u"--test-root=C:"});
  EXPECT_EQ(app.settingsPath, u"C:settings.dat");
}

TEST_F(AppTest, TheTestRootHoldsTheSettings) {
  EXPECT_EQ(startWithArguments({u"--test-root=C:\\trial"}), std::nullopt);
  EXPECT_TRUE(app.testMode.isOn);
  EXPECT_EQ(app.settingsPath, u"C:\\trial\\settings.dat");
  EXPECT_TRUE(files().exists(u"C:\\trial\\settings.dat"));
}

TEST_F(AppTest, OfTwoTestRootsTheLaterCounts) {
  (void)startWithArguments({u"--test-root=C:\\one", u"--test-root=C:\\two"});
  EXPECT_EQ(app.testMode.root, u"C:\\two");
}

TEST_F(AppTest, ATestRootWithBlanksArrivesWhole) {
  (void)startWithArguments({u"--test-root=C:\\my talks\\trial run"});
  EXPECT_EQ(app.testMode.root, u"C:\\my talks\\trial run");
}

TEST_F(AppTest, TheCaseOfTheArgumentCounts) {
  (void)startWithArguments({u"--Test-Root=C:\\one"});
  EXPECT_FALSE(app.testMode.isOn);
}

TEST_F(AppTest, OtherArgumentsAreIgnored) {
  (void)startWithArguments({u"--help", u"C:\\talk.pptx", u"x--test-root=C:\\one"});
  EXPECT_FALSE(app.testMode.isOn);
}

TEST_F(AppTest, WithoutAFileTheClockStartsNearTheTopRightCorner) {
  screens.workArea = {0, 40, 1600, 900};
  start();
  EXPECT_EQ(app.settings.windowX, 1600 - 183 - 30);
  EXPECT_EQ(app.settings.windowY, 40 + 30);
  EXPECT_EQ(clockWindow.place, (Rect{1387, 70, 1387 + 183, 70 + 82}));
}

TEST_F(AppTest, TheFirstPlaceAndTheSizeAreScaledByTheSystemDpi) {
  screens.dpi = 144;
  start();
  EXPECT_EQ(app.settings.windowX, 1920 - 320) << "213 units and a half rounded up";
  EXPECT_EQ(app.settings.windowY, 45);
  EXPECT_EQ(clockWindow.place.width(), 275);
  EXPECT_EQ(clockWindow.place.height(), 123);
}

TEST_F(AppTest, WithoutAFileTheFirstPlaceIsSavedAtOnce) {
  start();
  EXPECT_EQ(saved(), app.settings);
}

TEST_F(AppTest, AFirstSaveThatFailsIsToldAndStartUpGoesOn) {
  files().failing = {FilesFake::Operation::Flush};
  start();
  EXPECT_EQ(app.lastError, u"初始设置保存失败：Configuration flush failed");
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(AppTest, AnEmptySettingsPathStartsWithDefaultsAndTellsThatNothingCanBeSaved) {
  app.remote.running = true;  // starting it would replace the last error
  EXPECT_EQ(startApp(app, {}, u""), std::nullopt);
  EXPECT_EQ(app.lastError, u"初始设置保存失败：No configuration directory");
  EXPECT_TRUE(app.settingsWritable);
}

TEST_F(AppTest, ASavedPlaceIsTakenAsItStands) {
  Settings settings;
  settings.windowX = -100;
  settings.windowY = 7;
  startWith(settings);
  EXPECT_EQ(clockWindow.place.left, -100);
  EXPECT_EQ(clockWindow.place.top, 7);
}

TEST_F(AppTest, APlaceAtTheEndOfTheNumbersIsCorrectedLikeAnyOtherOffScreen) {
  for (const int32_t distant : {INT32_MAX, INT32_MAX - 100, INT32_MIN}) {
    clockWindow.exists = false;
    Settings settings;
    settings.windowX = distant;
    settings.windowY = distant;
    startWith(settings);
    EXPECT_EQ(clockWindow.place, (Rect{30, 30, 30 + 183, 30 + 82}));
    EXPECT_EQ(app.settings.windowX, distant) << "it is not saved";
  }
}

TEST_F(AppTest, ARefusedFileIsNotOverwrittenAndItsMessageKept) {
  files().putFile(kSettingsPath, "something else");
  start();
  EXPECT_FALSE(app.settingsWritable);
  EXPECT_EQ(app.lastError, kRefused);
  EXPECT_EQ(files().bytesOf(kSettingsPath), "something else");
  EXPECT_EQ(app.settings, Settings{});
}

TEST_F(AppTest, AnUnreadableFileIsNotOverwrittenAndItsMessageKept) {
  files().putFile(kSettingsPath, "something else");
  files().holdOpen(kSettingsPath);
  start();
  EXPECT_FALSE(app.settingsWritable);
  EXPECT_EQ(app.lastError, u"无法读取配置");
}

TEST_F(AppTest, WhatWasWrongWithTheFileIsStillToldWhenTheServiceCannotStartEither) {
  files().putFile(kSettingsPath, "something else");
  ASSERT_TRUE(network.connected.empty());
  EXPECT_EQ(startWithArguments({}), std::nullopt);
  EXPECT_EQ(app.lastError, std::u16string(kRefused) + u"\n" + kNoNetwork);
  runCommand(app, kCommandOpenSettings);
  EXPECT_EQ(settingsView.text(kStatusText), app.lastError);
}

TEST_F(AppTest, AFirstSaveThatFailedIsStillToldWhenTheServiceCannotStartEither) {
  files().failing = {FilesFake::Operation::Flush};
  EXPECT_EQ(startWithArguments({}), std::nullopt);
  EXPECT_EQ(app.lastError,
            std::u16string(u"初始设置保存失败：Configuration flush failed\n") + kNoNetwork);
}

TEST_F(AppTest, AServiceThatStartsLeavesWhatWasWrongWithTheFileAlone) {
  files().putFile(kSettingsPath, "something else");
  EXPECT_EQ(startWithArguments({u"--test-root=C:\\data"}), std::nullopt);
  EXPECT_TRUE(app.remote.running);
  EXPECT_EQ(app.lastError, kRefused);
  finishApp(app);
}

TEST_F(AppTest, AServiceThatCannotStartIsToldAloneWhenNothingElseWentWrong) {
  EXPECT_EQ(startWithArguments({}), std::nullopt);
  EXPECT_EQ(app.lastError, kNoNetwork);
}

TEST_F(AppTest, AFileSystemThatCannotTellWhetherThereIsAFileEndsTheProcess) {
  files().failing = {FilesFake::Operation::Status};
  try {
    start();
    FAIL() << "start-up went on";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_NE(std::string(error.what()).find("exists: Access is denied. [C:\\data\\settings.dat]"),
              std::string::npos)
        << error.what();
  }
}

TEST_F(AppTest, WithoutDrawingTheExitCodeIsTwoAndThereIsNoClock) {
  loop.drawingWorks = false;
  EXPECT_EQ(startWithArguments({}), 2);
  EXPECT_TRUE(clockWindow.calls.empty());
}

TEST_F(AppTest, WithoutAClockWindowTheExitCodeIsThreeAndNoTimerRuns) {
  clockWindow.createFails = true;
  EXPECT_EQ(startWithArguments({}), 3);
  EXPECT_TRUE(loop.timers.empty());
}

TEST_F(AppTest, AfterTheLoadComeDrawingThenClassesThenTheTimer) {
  start();
  EXPECT_EQ(loop.calls, (std::vector<std::string>{"prepareDrawing", "registerWindowClasses",
                                                  "setTimer 1", "killTimer 2"}));
  EXPECT_EQ(loop.timers[LoopTimer::Tick], 100u);
}

TEST_F(AppTest, TheClockIsMadeShownAndPaintedBeforeTheLoopRuns) {
  startWith(Settings{});
  EXPECT_EQ(clockWindow.calls,
            (std::vector<std::string>{"create", "show", "invalidate", "paintNow"}));
}

TEST_F(AppTest, AClockSavedOffScreenIsMovedIntoViewBeforeItIsShownAndNotSaved) {
  Settings settings;
  settings.windowX = 5000;
  startWith(settings);
  EXPECT_EQ(clockWindow.calls,
            (std::vector<std::string>{"create", "moveTo", "show", "invalidate", "paintNow"}));
  EXPECT_EQ(clockWindow.place.left, 30);
  EXPECT_EQ(clockWindow.place.top, 30);
  EXPECT_EQ(saved().windowX, 5000);
}

TEST_F(AppTest, TheSettingsWindowIsAskedForOnceTheLoopRuns) {
  start();
  EXPECT_EQ(loop.posted, std::vector<int>{kCommandOpenSettings});
}

TEST_F(AppTest, TheIconIsThereBeforeTheFirewallMayAskForTheService) {
  files().putFile(kSettingsPath, composeSettings(Settings{}));
  network.beforeQuestion = [&] { EXPECT_EQ(tray.icons, 1); };
  EXPECT_EQ(startWithArguments({}), std::nullopt);
  EXPECT_GT(network.questions, 0);
}

TEST_F(AppTest, ASecondStartShowsTheSettingsOfTheFirstAndEndsWithoutTouchingAnything) {
  instances.busyMs = 60'000;
  instances.clocks = {{WindowHandle{7}, true, instances.account}};
  EXPECT_EQ(startWithArguments({}), kExitNormal);
  EXPECT_EQ(instances.asked, std::vector{WindowHandle{7}});
  EXPECT_TRUE(files().done.empty());
  EXPECT_TRUE(clockWindow.calls.empty());
  EXPECT_TRUE(loop.calls.empty());
  EXPECT_EQ(tray.additions, 0);
}

TEST_F(AppTest, TheFirstStartLetsTheOthersKnowItsClock) {
  start();
  EXPECT_EQ(instances.announced, clockWindow.handle());
}

TEST_F(AppTest, StartsOfTestModeNeitherMeetOthersNorAreMetByThem) {
  instances.busyMs = 60'000;
  instances.clocks = {{WindowHandle{7}, true, instances.account}};
  EXPECT_EQ(startWithArguments({u"--test-root=C:\\trial"}), std::nullopt);
  EXPECT_TRUE(instances.asked.empty());
  EXPECT_EQ(instances.waitedMs, 0u);
  EXPECT_FALSE(instances.announced);
  finishApp(app);
}

TEST_F(AppTest, InTestModeReadyHoldsTheProcessIdAndNothingElse) {
  (void)startWithArguments({u"--test-root=C:\\trial\\"});
  EXPECT_EQ(files().bytesOf(u"C:\\trial\\ready.txt"), "4711");
}

TEST_F(AppTest, InTestModeAnOldReadyFileIsReplaced) {
  files().putFile(u"C:\\trial\\ready.txt", "an old and longer text");
  (void)startWithArguments({u"--test-root=C:\\trial"});
  EXPECT_EQ(files().bytesOf(u"C:\\trial\\ready.txt"), "4711");
}

TEST_F(AppTest, InTestModeAFolderThatCannotBeMadeEndsTheProcess) {
  files().putFile(u"C:\\trial\\settings.dat", "MarluneNative2");
  files().failing = {FilesFake::Operation::CreateFolders};
  try {
    (void)startWithArguments({u"--test-root=C:\\trial"});
    FAIL() << "start-up went on";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_NE(std::string(error.what()).find("create_directories: Access is denied. [C:\\trial]"),
              std::string::npos)
        << error.what();
  }
}

TEST_F(AppTest, OutsideTestModeNoReadyFileIsWritten) {
  start();
  EXPECT_FALSE(files().exists(u"C:\\data\\ready.txt"));
}

TEST_F(AppTest, ClosingTheClockTakesTheOtherWindowsAlongAndEndsTheLoop) {
  start();
  blackScreen.covering = true;
  toolbar.exists = true;
  audio.isOpen = true;
  loop.calls.clear();
  onClockDestroyed(app);
  EXPECT_EQ(loop.calls, (std::vector<std::string>{"killTimer 2", "quit"}));
  EXPECT_FALSE(blackScreen.covering);
  EXPECT_FALSE(toolbar.exists);
  EXPECT_TRUE(audio.isOpen) << "it stops after the loop";
}

TEST_F(AppTest, TheEndStopsWhatIsInFlightAndWritesNothing) {
  start();
  startBlink(app, 0);
  app.settings.duration = 1;
  const std::string before = files().bytesOf(kSettingsPath);
  finishApp(app);
  EXPECT_FALSE(app.blink.active);
  EXPECT_EQ(files().bytesOf(kSettingsPath), before);
}

TEST_F(AppTest, AStatusIsKeptForLater) {
  setStatus(app, u"文本");
  EXPECT_EQ(app.lastError, u"文本");
}

TEST_F(AppTest, ChangedSettingsAreAdoptedOnlyWhenTheyWereSaved) {
  start();
  Settings changed = app.settings;
  changed.duration = 60;
  EXPECT_TRUE(adoptSettings(app, changed, FormUpdate::None));
  EXPECT_EQ(app.settings.duration, 60u);
  EXPECT_EQ(saved().duration, 60u);

  changed.duration = 70;
  files().failing = {FilesFake::Operation::Replace};
  EXPECT_FALSE(adoptSettings(app, changed, FormUpdate::None));
  EXPECT_EQ(app.settings.duration, 60u);
  EXPECT_EQ(app.lastError, u"Atomic configuration replacement failed");
  files().failing.clear();
  EXPECT_EQ(saved().duration, 60u);
}

}  // namespace
}  // namespace mrl
