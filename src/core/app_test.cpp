#include "core/app.h"

#include <filesystem>

#include "core/app_fixture.h"
#include "core/commands.h"
#include "core/expiry.h"

namespace mrl {
namespace {

class AppTest : public AppFixture {
 protected:
  std::optional<int> startWithArguments(const std::vector<std::u16string>& arguments) {
    return startApp(app, arguments, kSettingsPath);
  }
};

TEST_F(AppTest, StartsWithDefaultsAndAWritableFile) {
  EXPECT_EQ(app.settings, Settings{});
  EXPECT_TRUE(app.settingsWritable);
  EXPECT_EQ(app.timer, TimerState{});
  EXPECT_EQ(app.lastStatus, ShowStatus{});
}

TEST_F(AppTest, WithoutATestRootTheDefaultPathCounts) {
  start();
  EXPECT_FALSE(app.testMode);
  EXPECT_EQ(app.settingsPath, kSettingsPath);
}

TEST_F(AppTest, TheTestRootHoldsTheSettings) {
  EXPECT_EQ(startWithArguments({u"--test-root=C:\\trial"}), std::nullopt);
  EXPECT_TRUE(app.testMode);
  EXPECT_EQ(app.settingsPath, u"C:\\trial\\settings.dat");
  EXPECT_TRUE(files().exists(u"C:\\trial\\settings.dat"));
}

TEST_F(AppTest, OfTwoTestRootsTheLaterCounts) {
  (void)startWithArguments({u"--test-root=C:\\one", u"--test-root=C:\\two"});
  EXPECT_EQ(app.testRoot, u"C:\\two");
}

TEST_F(AppTest, ATestRootWithBlanksArrivesWhole) {
  (void)startWithArguments({u"--test-root=C:\\my talks\\trial run"});
  EXPECT_EQ(app.testRoot, u"C:\\my talks\\trial run");
}

TEST_F(AppTest, TheCaseOfTheArgumentCounts) {
  (void)startWithArguments({u"--Test-Root=C:\\one"});
  EXPECT_FALSE(app.testMode);
}

TEST_F(AppTest, OtherArgumentsAreIgnored) {
  (void)startWithArguments({u"--help", u"C:\\talk.pptx", u"x--test-root=C:\\one"});
  EXPECT_FALSE(app.testMode);
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
  app.remote.running = true;  // its start would have the last word
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

TEST_F(AppTest, ARefusedFileIsNotOverwrittenAndItsMessageKept) {
  files().putFile(kSettingsPath, "something else");
  start();
  EXPECT_FALSE(app.settingsWritable);
  EXPECT_EQ(app.lastError, u"配置格式无效，已使用默认值；原文件未覆盖。");
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

TEST_F(AppTest, AFileSystemThatCannotTellWhetherThereIsAFileEndsTheProcess) {
  files().failing = {FilesFake::Operation::Status};
  try {
    start();
    FAIL() << "start-up went on";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_NE(std::string(error.what()).find("exists"), std::string::npos);
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
    EXPECT_NE(std::string(error.what()).find("create_directories"), std::string::npos);
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
  EXPECT_FALSE(app.blinkActive);
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
  EXPECT_TRUE(adoptSettings(app, changed));
  EXPECT_EQ(app.settings.duration, 60u);
  EXPECT_EQ(saved().duration, 60u);

  changed.duration = 70;
  files().failing = {FilesFake::Operation::Replace};
  EXPECT_FALSE(adoptSettings(app, changed));
  EXPECT_EQ(app.settings.duration, 60u);
  EXPECT_EQ(app.lastError, u"Atomic configuration replacement failed");
  files().failing.clear();
  EXPECT_EQ(saved().duration, 60u);
}

}  // namespace
}  // namespace mrl
