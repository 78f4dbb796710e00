// The clock follows the shows of another process: through automation, and by the desktop's windows
// alone.
#include "base/command_ids.h"
#include "base/wide_win.h"
#include "core/tray_win.h"
#include "windows/menu_window.h"
#include "windows/show_following_fixture.h"

namespace mrl {
namespace {

using standin::waitUntil;

/// Tests that must pass both ways.
class EitherRoadTest : public ShowFollowingTest, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    startPresentations();
    if (std::string(GetParam()) == "NativeScan") tell(L"withdraw");
    open(demo);
  }
};
INSTANTIATE_TEST_SUITE_P(Roads, EitherRoadTest, testing::Values("Automation", "NativeScan"),
                         [](const auto& road) { return std::string(road.param); });

TEST_P(EitherRoadTest, TheClockStartsWithTheShowAndPausesAndResumesWithIt) {
  startTimer();
  EXPECT_TRUE(isIdle());
  tell(L"show");
  EXPECT_TRUE(program.isCounting());
  tell(L"exit");
  EXPECT_TRUE(isPaused());
  const std::wstring paused = program.text();
  tell(L"show");
  EXPECT_TRUE(program.isCounting());
  EXPECT_LT(program.text(), paused);
}

TEST_P(EitherRoadTest, AShowThatRunsBeforeTheTimerStartsTheClockAtOnce) {
  tell(L"show");
  startTimer();
  EXPECT_TRUE(program.isCounting());
}

TEST_P(EitherRoadTest, AnotherDocumentRestartsTheClock) {
  startTimer();
  tell(L"show");
  ASSERT_TRUE(program.waitForText(L"14:57"));
  tell(L"exit");
  open(other);
  const std::wstring before = program.text();
  tell(L"show other.pptx");
  EXPECT_TRUE(hasRestarted(before));
  EXPECT_TRUE(program.isCounting());
}

TEST_P(EitherRoadTest, AClosedDocumentResetsTheClock) {
  startTimer();
  tell(L"show");
  ASSERT_TRUE(program.isCounting());
  tell(L"exit");
  ASSERT_TRUE(isPaused());
  tell(L"close");
  EXPECT_TRUE(isIdle());
}

TEST_P(EitherRoadTest, AClosedDocumentResetsTheClockOnlyAfterTheDelay) {
  Settings settings;
  settings.resetDelay = 4;
  startTimer(settings);
  tell(L"show");
  ASSERT_TRUE(program.isCounting());
  tell(L"close");
  EXPECT_TRUE(isPaused()) << "for more than two seconds";
  EXPECT_TRUE(isIdle());
}

TEST_P(EitherRoadTest, AnExcludedFileIsNotTimed) {
  Settings settings;
  settings.skipList = {u16From(demo.path)};
  startTimer(settings);
  tell(L"show");
  EXPECT_TRUE(isIdle());
}

TEST_P(EitherRoadTest, AtTheEndOfTheTimeTheShowIsExited) {
  Settings settings;
  settings.duration = 3;
  settings.exitShow = true;
  startTimer(settings);
  tell(L"show");
  EXPECT_TRUE(showEnds());
  EXPECT_EQ(logHas(L"View.Exit"), std::string(GetParam()) == "Automation");
  EXPECT_EQ(logHas(L"key 0x1B"), std::string(GetParam()) == "NativeScan");
}

TEST_P(EitherRoadTest, AShowThatWasMinimisedIsNotOneOfTheWindowsAnyMore) {
  startTimer();
  tell(L"show");
  ASSERT_TRUE(program.isCounting());
  tell(L"minimise-show");
  if (std::string(GetParam()) == "Automation") {
    EXPECT_TRUE(program.isCounting()) << "the application still tells of it";
  } else {
    EXPECT_TRUE(isPaused());
  }
}

TEST_P(EitherRoadTest, ASlideRestartsTheClockWhereSlidesCanBeTold) {
  Settings settings;
  settings.perSlide = true;
  startTimer(settings);
  tell(L"show");
  ASSERT_TRUE(program.waitForText(L"14:56"));
  tell(L"next");
  if (std::string(GetParam()) == "Automation") {
    EXPECT_TRUE(hasRestarted(L"14:57"));
  } else {
    EXPECT_TRUE(program.waitForText(L"14:53"));
  }
}

TEST_F(ShowFollowingTest, AWindowTenPixelsShortOfItsMonitorIsAShowAndOneOfSeventeenIsNone) {
  startPresentations();
  tell(L"withdraw");
  open(demo);
  tell(L"show");
  tell(L"inset-show 17 left");
  startTimer();
  EXPECT_TRUE(isIdle());
  tell(L"inset-show 10");
  EXPECT_TRUE(program.isCounting());
}

TEST_F(ShowFollowingTest, AFailedCallIsRepairedByAKey) {
  startPresentations();
  open(demo);
  Settings settings;
  settings.duration = 3;
  settings.exitShow = true;
  tell(L"fail Exit");
  tell(L"show");
  startTimer(settings);
  EXPECT_TRUE(showEnds());
  EXPECT_TRUE(logHas(L"key 0x1B"));
}

TEST_F(ShowFollowingTest, OfTwoShowsTheFirstProviderCountsUntilTheOtherWasSeenAlone) {
  startPresentations();
  standin::Client second;
  ASSERT_TRUE(second.start(L"wpp.exe"));
  open(demo);
  ASSERT_EQ(second.command(L"open \"" + other.path + L"\""), L"ok");
  ASSERT_EQ(second.command(L"show"), L"ok");
  startTimer();
  ASSERT_TRUE(program.waitForText(L"14:57")) << "the second program's show is the only one";
  tell(L"show");
  EXPECT_TRUE(program.waitForText(L"14:53")) << "who showed last is asked first";
  const std::wstring before = program.text();
  ASSERT_EQ(second.command(L"exit"), L"ok");
  EXPECT_TRUE(hasRestarted(before)) << "now it is the first program's document";
}

TEST_F(ShowFollowingTest, OfTwoShowsAtTheStartTheFirstProviderCounts) {
  startPresentations();
  standin::Client second;
  ASSERT_TRUE(second.start(L"wpp.exe"));
  open(demo);
  tell(L"show");
  ASSERT_EQ(second.command(L"open \"" + other.path + L"\""), L"ok");
  ASSERT_EQ(second.command(L"show"), L"ok");
  Settings settings;
  settings.skipList = {u16From(other.path)};  // a show of the second would not be timed
  startTimer(settings);
  EXPECT_TRUE(program.isCounting());
}

TEST_F(ShowFollowingTest, AnEmptyDocumentNameIsStillAShow) {
  startPresentations();
  open(demo);
  tell(L"empty-fullname on");
  tell(L"show");
  startTimer();
  EXPECT_TRUE(program.isCounting());
}

TEST_F(ShowFollowingTest, AShowWithoutAWindowHandleIsStillAShow) {
  startPresentations();
  open(demo);
  tell(L"hwnd-zero on");
  tell(L"show");
  startTimer();
  EXPECT_TRUE(program.isCounting());
}

TEST_F(ShowFollowingTest, AProgramThatHangsForAWhileCostsTheClockNoTime) {
  startPresentations();
  open(demo);
  tell(L"show");
  startTimer();
  ASSERT_TRUE(program.waitForText(L"14:57"));
  tell(L"hang 3000");
  EXPECT_TRUE(program.waitForText(L"14:50"));
}

// The taskbar sends clicks on the icon as messages, and sent messages are handled while waiting for
// another program. A menu opened then would run a nested loop in the middle of the call.
TEST_F(ShowFollowingTest, AClickOnTheTrayIconDuringAHangHasItsMenuAfterIt) {
  startPresentations();
  open(demo);
  tell(L"show");
  Settings settings;
  settings.perSlide = true;
  startTimer(settings);
  ASSERT_TRUE(program.waitForText(L"14:57"));
  tell(L"hang 4000");
  ASSERT_TRUE(waitUntil([&] { return !presentations.answers(); }));
  const std::wstring before = program.text();
  SendNotifyMessageW(program.clock(), kTrayNotify, 1, WM_RBUTTONUP);
  ASSERT_TRUE(waitUntil([&] { return menuOf(program.clock()) != nullptr; }));
  EXPECT_TRUE(presentations.answers()) << "the call is over";
  EXPECT_TRUE(program.isCounting());
  pressKey(VK_ESCAPE);
  ASSERT_TRUE(waitUntil([&] { return menuOf(program.clock()) == nullptr; }));
  EXPECT_TRUE(program.isCounting());
  EXPECT_LT(program.text(), before) << "the same slide: no restart";
}

TEST_F(ShowFollowingTest, AProgramThatDiesBetweenTwoCallsLeavesTheClockAlive) {
  startPresentations();
  open(demo);
  tell(L"show");
  startTimer();
  ASSERT_TRUE(program.isCounting());
  tell(L"die-on SlideShowWindows");
  EXPECT_TRUE(isIdle()) << "its document is gone with it";
  program.command(kCommandToggleTimer);
  EXPECT_TRUE(program.isCounting());
}

TEST_F(ShowFollowingTest, AProgramThatTalksNonsenseLeavesTheClockAlive) {
  startPresentations();
  open(demo);
  for (const wchar_t* member : {L"Presentations", L"SlideShowWindows", L"Count", L"FullName",
                                L"View", L"Slide", L"SlideIndex", L"HWND"}) {
    tell(std::wstring(L"nonsense ") + member);
  }
  tell(L"show");
  startTimer();
  EXPECT_TRUE(program.isCounting()) << "the window on the desktop is believed";
}

TEST_F(ShowFollowingTest, AProgramThatIsStartedLaterIsFound) {
  startTimer();
  ASSERT_TRUE(isIdle());
  startPresentations();
  open(demo);
  tell(L"show");
  EXPECT_TRUE(program.isCounting());
}

TEST_F(ShowFollowingTest, InManualModeAShowLeavesTheClockAloneUntilTheModeIsChanged) {
  startPresentations();
  open(demo);
  Settings settings;
  settings.autoMode = false;
  startTimer(settings);
  tell(L"show");
  EXPECT_TRUE(isIdle());
  program.command(kCommandAutoMode);
  EXPECT_TRUE(program.isCounting());
  EXPECT_TRUE(program.settings().autoMode);
}

TEST_F(ShowFollowingTest, TheShowKeepsTheFocusWhileTheClockFloatsAboveIt) {
  startPresentations();
  open(demo);
  tell(L"show");
  const HWND show = standin::findWindow(L"screenClass", L"PowerPoint Slide Show - [demo.pptx]");
  ASSERT_NE(show, nullptr);
  ASSERT_TRUE(waitUntil([&] { return GetForegroundWindow() == show; }));
  startTimer();
  ASSERT_TRUE(program.isCounting());
  EXPECT_EQ(GetForegroundWindow(), show);
  HWND above = show;
  while (above != nullptr && above != program.clock()) above = GetWindow(above, GW_HWNDPREV);
  EXPECT_EQ(above, program.clock());
}

}  // namespace
}  // namespace mrl
