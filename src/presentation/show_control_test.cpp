#include "presentation/show_control.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "presentation/presentation_fake.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

using Log = std::vector<std::string>;
constexpr char16_t kNoWindowText[] = u"未检测到可控制的 PowerPoint/WPS 窗口";
constexpr char16_t kUntouched[] = u"untouched";

class ShowControlTest : public testing::Test {
 protected:
  PresentationFake world;
  std::u16string error = kUntouched;

  bool send(std::string_view command) {
    world.log.clear();
    return sendShowCommand(world.access, world.state, command, error);
  }
  bool press(std::string_view command) {
    world.log.clear();
    return sendShowKeys(world.windows, command);
  }
  bool logged(const std::string& entry) {
    return std::find(world.log.begin(), world.log.end(), entry) != world.log.end();
  }
  /// The log of raising a window.
  static Log raised(const std::string& window) {
    return {"show " + window, "topmost " + window, "not topmost " + window, "top " + window,
            "foreground " + window};
  }
  /// How every command starts: checks the kept application and looks for its show.
  static Log lookingForTheShow(bool found) {
    Log log{"get application.Name", "get application.SlideShowWindows", "get shows.Count"};
    if (found) log.insert(log.end(), {"get shows.Count", "both shows.Item 1", "get shows.Count"});
    return log;
  }
  static Log join(std::initializer_list<Log> parts) {
    Log all;
    for (const Log& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  std::shared_ptr<FakeApplication> application = world.automation.add(u"PowerPoint.Application");
  void connect() {
    world.state.application = application->object;
    world.state.progId = application->progId;
  }
  void disconnect() { application->runs = false; }
};

/// An application with a show of a.pptx on slide 5, in window 77; no window takes keys.
class RunningShowTest : public ShowControlTest {
 protected:
  std::shared_ptr<FakeShow> show;
  RunningShowTest() {
    connect();
    show = application->addShow(application->addDeck(u"C:\\a.pptx"), 77, 5);
    world.windows.windows.push_back({.handle = {77}, .image = u"other.exe"});
  }
  /// The same window, now recognised by the scan as a show.
  void letTheScanSeeTheShow() {
    world.windows.windows.clear();
    world.addShowWindow(77);
  }
};

/// An application with a.pptx open for editing on slide 7; Run starts a show in window 88.
class EditingTest : public ShowControlTest {
 protected:
  EditingTest() {
    connect();
    application->addDeck(u"C:\\a.pptx")->editedSlide = 7;
    application->nextShowWindow = 88;
    world.windows.windows.push_back({.handle = {88}, .image = u"other.exe"});
  }
};

// --- a running show ---

TEST_F(RunningShowTest, BeginGoesToTheFirstSlideWithoutARestart) {
  EXPECT_TRUE(send("begin"));
  EXPECT_EQ(world.log,
            join({lookingForTheShow(true), {"get show.View", "method view.GotoSlide 1"}}));
  EXPECT_EQ(show->slide, 1);
  EXPECT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(error, kUntouched);
}

TEST_F(RunningShowTest, CurrentOnlyRaisesTheShow) {
  EXPECT_TRUE(send("current"));
  EXPECT_EQ(world.log,
            join({lookingForTheShow(true),
                  {"get show.Presentation", "get presentation.FullName", "get show.HWND"},
                  raised("77")}));
  EXPECT_EQ(show->slide, 5);
}

TEST_F(RunningShowTest, CurrentSucceedsEvenWhenNothingCanBeRaised) {
  world.automation.fail("show.HWND");
  world.automation.fail("show.Presentation");
  EXPECT_TRUE(send("current"));
  EXPECT_EQ(error, kUntouched);
  EXPECT_FALSE(logged("show 77"));
}

TEST_F(RunningShowTest, CurrentRaisesAShowWhoseDocumentCanNotBeRead) {
  for (const char* member : {"show.Presentation", "presentation.FullName"}) {
    world.automation.answers.clear();
    world.automation.fail(member);
    EXPECT_TRUE(send("current"));
    EXPECT_TRUE(logged("foreground 77")) << member;
  }
}

TEST_F(RunningShowTest, CurrentFindsTheWindowByTheDocumentWhenTheHandleFails) {
  world.automation.fail("show.HWND");
  world.addShowWindow(5, u"Slide Show - a.pptx");
  EXPECT_TRUE(send("current"));
  EXPECT_TRUE(logged("foreground 5"));
}

TEST_F(RunningShowTest, NextMovesTheView) {
  EXPECT_TRUE(send("next"));
  EXPECT_EQ(world.log, join({lookingForTheShow(true), {"get show.View", "method view.Next"}}));
  EXPECT_EQ(show->slide, 6);
}

TEST_F(RunningShowTest, PreviousMovesTheView) {
  EXPECT_TRUE(send("previous"));
  EXPECT_EQ(world.log, join({lookingForTheShow(true), {"get show.View", "method view.Previous"}}));
  EXPECT_EQ(show->slide, 4);
}

TEST_F(RunningShowTest, ExitEndsTheShow) {
  EXPECT_TRUE(send("exit"));
  EXPECT_EQ(world.log, join({lookingForTheShow(true), {"get show.View", "method view.Exit"}}));
  EXPECT_TRUE(application->shows.empty());
}

TEST_F(RunningShowTest, CloseClosesTheActivePresentation) {
  EXPECT_TRUE(send("close"));
  EXPECT_EQ(world.log, join({lookingForTheShow(true),
                             {"get application.ActivePresentation", "method presentation.Close"}}));
  EXPECT_TRUE(application->decks.empty());
}

TEST_F(RunningShowTest, AnUnknownCommandCallsNothing) {
  EXPECT_FALSE(send("pause"));
  EXPECT_EQ(world.log, lookingForTheShow(true));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

TEST_F(RunningShowTest, CommandsAreComparedExactlyAndWithCase) {
  for (const char* command : {"Next", "next ", "NEXT", "nex", ""}) {
    EXPECT_FALSE(send(command)) << command;
    EXPECT_EQ(world.log, lookingForTheShow(true)) << command;
  }
}

TEST_F(RunningShowTest, TheShowOfTheExpectedDocumentIsMoved) {
  const auto second = application->addShow(application->addDeck(u"C:\\b.pptx"), 78, 2);
  world.state.expectedDocument = normalizePath(world.files, u"C:\\b.pptx");
  EXPECT_TRUE(send("next"));
  EXPECT_EQ(second->slide, 3);
  EXPECT_EQ(show->slide, 5);
}

TEST_F(RunningShowTest, AnyResultThatIsNotNegativeIsASuccess) {
  world.automation.answers["view.Next"] = {1, {}};
  EXPECT_TRUE(send("next"));
}

TEST_F(RunningShowTest, AFailedMoveIsRepairedByTheKeyPressWithoutAMessage) {
  letTheScanSeeTheShow();
  world.automation.fail("view.Next");
  EXPECT_TRUE(send("next"));
  EXPECT_EQ(
      world.log,
      join({lookingForTheShow(true),
            {"get show.View", "method view.Next", "restore 77", "foreground 77", "keys +39 -39"}}));
  EXPECT_EQ(error, kUntouched);
}

TEST_F(RunningShowTest, AFailedMoveThatKeysCanNotRepairTellsItsResult) {
  world.automation.fail("view.Next", static_cast<int32_t>(0x80048240));
  EXPECT_FALSE(send("next"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147779136）");
}

TEST_F(RunningShowTest, AFailedMoveWhoseKeysCanNotGetTheFocusFails) {
  letTheScanSeeTheShow();
  world.automation.fail("view.Exit");
  world.windows.foregroundRefused = true;
  EXPECT_FALSE(send("exit"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

TEST_F(RunningShowTest, AMoveWithoutAViewIsANullObject) {
  world.automation.fail("show.View");
  EXPECT_FALSE(send("previous"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500035）");
}

TEST_F(RunningShowTest, AFailedBeginInARunningShowTellsItsResult) {
  world.automation.fail("view.GotoSlide");
  EXPECT_FALSE(send("begin"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

TEST_F(RunningShowTest, AFailedCloseTellsItsResult) {
  world.automation.fail("presentation.Close");
  EXPECT_FALSE(send("close"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

// --- no show yet ---

TEST_F(EditingTest, BeginStartsTheShowOnTheFirstSlide) {
  EXPECT_TRUE(send("begin"));
  EXPECT_EQ(world.log,
            join({lookingForTheShow(false),
                  {"get application.ActivePresentation", "get presentation.SlideShowSettings",
                   "method settings.Run", "get show.View", "method view.GotoSlide 1",
                   "get presentation.FullName", "get show.HWND"},
                  raised("88")}));
  ASSERT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(error, kUntouched);
}

TEST_F(EditingTest, CurrentStartsTheShowOnTheSlideThatIsEdited) {
  EXPECT_TRUE(send("current"));
  EXPECT_EQ(world.log,
            join({lookingForTheShow(false),
                  {"get application.ActivePresentation", "get presentation.SlideShowSettings",
                   "get application.ActiveWindow", "get window.View", "get editView.Slide",
                   "get editSlide.SlideIndex", "method settings.Run", "get show.View",
                   "method view.GotoSlide 7", "get presentation.FullName", "get show.HWND"},
                  raised("88")}));
  EXPECT_EQ(application->shows.at(0)->slide, 7);
}

TEST_F(EditingTest, CurrentStartsOnTheFirstSlideWhenTheEditedOneCanNotBeRead) {
  for (const char* member :
       {"application.ActiveWindow", "window.View", "editView.Slide", "editSlide.SlideIndex"}) {
    application->shows.clear();
    world.automation.answers.clear();
    world.automation.fail(member);
    EXPECT_TRUE(send("current")) << member;
    EXPECT_TRUE(logged("method view.GotoSlide 1")) << member;
  }
}

TEST_F(EditingTest, CurrentStartsOnTheFirstSlideWhenTheNumberIsNotAboveOne) {
  for (const int32_t number : {1, 0, -3}) {
    application->shows.clear();
    application->active->editedSlide = number;
    EXPECT_TRUE(send("current"));
    EXPECT_TRUE(logged("method view.GotoSlide 1")) << number;
  }
}

TEST_F(EditingTest, BeginDoesNotAskForTheEditedSlide) {
  EXPECT_TRUE(send("begin"));
  EXPECT_FALSE(logged("get application.ActiveWindow"));
}

TEST_F(EditingTest, ACommandEndsWithTheApplicationThatItBeganWith) {
  const auto wps = world.automation.add(u"KWPP.Application");
  wps->addDeck(u"C:\\b.pptx");
  for (const AutomationRef& exchanged : {wps->object, AutomationRef()}) {
    connect();
    application->addDeck(u"C:\\a.pptx");
    world.automation.beforeCall = [&](const std::string& entry) {
      if (entry == "get application.SlideShowWindows") world.state.application = exchanged;
    };
    EXPECT_TRUE(send("close"));
    EXPECT_FALSE(application->active);
    EXPECT_EQ(wps->decks.size(), 1u);
  }
}

TEST_F(EditingTest, AShowThatDoesNotStartFails) {
  world.automation.fail("settings.Run", static_cast<int32_t>(0x80010105));
  EXPECT_FALSE(send("begin"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
  EXPECT_FALSE(logged("get show.View"));
}

TEST_F(EditingTest, WithoutAnActivePresentationNoShowStarts) {
  application->active = nullptr;
  EXPECT_FALSE(send("current"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

TEST_F(EditingTest, WithoutShowSettingsNoShowStarts) {
  world.automation.fail("presentation.SlideShowSettings");
  EXPECT_FALSE(send("begin"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

TEST_F(EditingTest, AStartedShowThatCanNotBeMovedIsRaisedAndFails) {
  world.automation.fail("view.GotoSlide");
  EXPECT_FALSE(send("current"));
  EXPECT_TRUE(logged("foreground 88"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

TEST_F(EditingTest, AStartedShowWithoutAWindowIsASuccess) {
  application->nextShowWindow = 0;
  EXPECT_TRUE(send("begin"));
  EXPECT_FALSE(logged("show 88"));
}

TEST_F(EditingTest, AStartThatFailsIsRepairedByTheKeyPress) {
  world.automation.fail("settings.Run");
  world.addEditWindow(5, u"a.pptx");
  EXPECT_TRUE(send("current"));
  EXPECT_EQ(world.log.back(), "keys +16 +116 -116 -16");
}

TEST_F(EditingTest, MovesWithoutAShowCallNothing) {
  for (const char* command : {"next", "previous", "exit"}) {
    error = kUntouched;
    EXPECT_FALSE(send(command)) << command;
    EXPECT_EQ(world.log, lookingForTheShow(false)) << command;
    EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）") << command;
  }
}

TEST_F(EditingTest, MovesGoByKeysWhenOnlyTheDesktopShowsAShow) {
  world.addShowWindow(5);
  EXPECT_TRUE(send("exit"));
  EXPECT_EQ(world.log.back(), "keys +27 -27");
}

TEST_F(EditingTest, CloseNeedsNoShow) {
  EXPECT_TRUE(send("close"));
  EXPECT_EQ(world.log, join({lookingForTheShow(false),
                             {"get application.ActivePresentation", "method presentation.Close"}}));
}

TEST_F(EditingTest, CloseWithoutAnActivePresentationIsANullObject) {
  application->active = nullptr;
  EXPECT_FALSE(send("close"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500035）");
}

TEST_F(EditingTest, AnUnknownCommandWithoutAShowFails) {
  EXPECT_FALSE(send("pause"));
  EXPECT_EQ(error, u"放映操作失败（COM HRESULT=2147500037）");
}

// --- no automation ---

TEST_F(ShowControlTest, ACommandConnectsToARunningApplication) {
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  EXPECT_TRUE(send("next"));
  EXPECT_EQ(world.log[0], "running PowerPoint.Application");
  EXPECT_EQ(world.state.application, application->object);
}

TEST_F(ShowControlTest, ADeadReferenceIsReplacedByACommand) {
  application->dead = true;
  connect();
  const auto wps = world.automation.add(u"WPP.Application");
  disconnect();
  wps->addShow(wps->addDeck(u"C:\\a.pptx"), 0);
  EXPECT_TRUE(send("next"));
  EXPECT_EQ(world.state.progId, u"WPP.Application");
}

TEST_F(ShowControlTest, MovesWithoutAutomationAndWithoutACoveringWindowFail) {
  disconnect();
  world.addEditWindow(5, u"a.pptx");
  for (const char* command : {"next", "previous", "exit"}) {
    error = kUntouched;
    EXPECT_FALSE(send(command)) << command;
    EXPECT_EQ(error, kNoWindowText) << command;
    EXPECT_FALSE(logged("restore 5")) << command;
  }
}

TEST_F(ShowControlTest, BeginWithoutAutomationPressesF5InTheFirstWindow) {
  disconnect();
  world.addEditWindow(5, u"a.pptx");
  world.addEditWindow(6, u"b.pptx");
  EXPECT_TRUE(send("begin"));
  EXPECT_EQ(world.log.back(), "keys +116 -116");
  EXPECT_EQ(world.windows.foreground(), WindowHandle{5});
  EXPECT_EQ(error, kUntouched);
}

TEST_F(ShowControlTest, NoCommandGoesOutOnADesktopWithoutPresentationWindows) {
  disconnect();
  for (const char* command : {"begin", "current", "next", "previous", "exit", "close", "pause"}) {
    error = kUntouched;
    EXPECT_FALSE(send(command)) << command;
    EXPECT_EQ(error, kNoWindowText) << command;
  }
}

TEST_F(ShowControlTest, AnUnknownCommandWithoutAutomationRaisesTheShowAndThenFails) {
  disconnect();
  world.addShowWindow(5);
  EXPECT_FALSE(send("pause"));
  EXPECT_EQ(world.log.at(world.log.size() - 2), "restore 5");
  EXPECT_EQ(world.log.back(), "foreground 5");
  EXPECT_EQ(error, kNoWindowText);
}

TEST_F(ShowControlTest, WithoutAutomationAndFocusACommandFails) {
  disconnect();
  world.addShowWindow(5);
  world.windows.foregroundRefused = true;
  EXPECT_FALSE(send("next"));
  EXPECT_EQ(error, kNoWindowText);
}

// --- keys ---

TEST_F(ShowControlTest, BeginIsF5) {
  world.addShowWindow(5);
  EXPECT_TRUE(press("begin"));
  EXPECT_EQ(world.log, (Log{"restore 5", "foreground 5", "keys +116 -116"}));
}
TEST_F(ShowControlTest, CurrentIsShiftF5) {
  world.addShowWindow(5);
  EXPECT_TRUE(press("current"));
  EXPECT_EQ(world.log, (Log{"restore 5", "foreground 5", "keys +16 +116 -116 -16"}));
}
TEST_F(ShowControlTest, NextIsTheRightArrow) {
  world.addShowWindow(5);
  EXPECT_TRUE(press("next"));
  EXPECT_EQ(world.log.back(), "keys +39 -39");
}
TEST_F(ShowControlTest, PreviousIsTheLeftArrow) {
  world.addShowWindow(5);
  EXPECT_TRUE(press("previous"));
  EXPECT_EQ(world.log.back(), "keys +37 -37");
}
TEST_F(ShowControlTest, ExitIsEscape) {
  world.addShowWindow(5);
  EXPECT_TRUE(press("exit"));
  EXPECT_EQ(world.log.back(), "keys +27 -27");
}
TEST_F(ShowControlTest, CloseIsAltF4) {
  world.addShowWindow(5);
  EXPECT_TRUE(press("close"));
  EXPECT_EQ(world.log.back(), "keys +18 +115 -115 -18");
}

TEST_F(ShowControlTest, KeysGoToTheCoveringShowEvenBelowOtherWindows) {
  world.addEditWindow(4, u"a.pptx");
  world.addShowWindow(5);
  EXPECT_TRUE(press("close"));
  EXPECT_EQ(world.windows.foreground(), WindowHandle{5});
}

TEST_F(ShowControlTest, BeginCurrentAndCloseGoToTheFirstWindowWhenThereIsNoShow) {
  world.addEditWindow(4, u"a.pptx");
  world.addEditWindow(5, u"b.pptx");
  for (const char* command : {"begin", "current", "close"}) {
    EXPECT_TRUE(press(command)) << command;
    EXPECT_EQ(world.log[0], "restore 4") << command;
  }
}

TEST_F(ShowControlTest, CloseSendsAltF4ToAnEditingWindow) {
  world.addEditWindow(4, u"a.pptx");
  EXPECT_TRUE(press("close"));
  EXPECT_EQ(world.log, (Log{"restore 4", "foreground 4", "keys +18 +115 -115 -18"}));
}

TEST_F(ShowControlTest, OtherCommandsDoNotEvenRaiseAWindowThatShowsNothing) {
  world.addEditWindow(4, u"a.pptx");
  for (const char* command : {"next", "previous", "exit", "pause"}) {
    EXPECT_FALSE(press(command)) << command;
    EXPECT_TRUE(world.log.empty()) << command;
  }
}

TEST_F(ShowControlTest, NoKeysWithoutAWindow) {
  EXPECT_FALSE(press("begin"));
  EXPECT_TRUE(world.log.empty());
}

TEST_F(ShowControlTest, NoKeysWhileAnotherProgramHoldsTheForeground) {
  world.addShowWindow(5);
  world.windows.foregroundWindow = {99};
  world.windows.foregroundRefused = true;
  EXPECT_FALSE(press("next"));
  EXPECT_EQ(world.log, (Log{"restore 5", "foreground 5"}));
}

TEST_F(ShowControlTest, NoKeysWhileAnotherWindowOfTheSameProgramHoldsTheForeground) {
  world.addEditWindow(4, u"a.pptx");
  world.addShowWindow(5);
  world.windows.foregroundWindow = {4};
  world.windows.foregroundRefused = true;
  EXPECT_FALSE(press("next"));
  EXPECT_EQ(world.log, (Log{"restore 5", "foreground 5"}));
}

TEST_F(ShowControlTest, NoKeysWhileNothingHoldsTheForeground) {
  world.addShowWindow(5);
  world.windows.foregroundRefused = true;
  EXPECT_FALSE(press("next"));
}

TEST_F(ShowControlTest, KeysOfWhichSomeDoNotGoInAreAFailure) {
  world.addShowWindow(5);
  world.windows.keysTaken = 3;
  EXPECT_FALSE(press("current"));
  world.windows.keysTaken = 0;
  EXPECT_FALSE(press("next"));
}

TEST_F(ShowControlTest, AnUnknownCommandSendsNoKeysButHasRaisedTheShow) {
  world.addShowWindow(5);
  EXPECT_FALSE(press("pause"));
  EXPECT_EQ(world.log, (Log{"restore 5", "foreground 5"}));
}

TEST_F(ShowControlTest, TheKeyCommandsAreComparedExactlyAndWithCase) {
  world.addShowWindow(5);
  for (const char* command : {"Next", "next ", "NEXT", "nex", ""}) {
    EXPECT_FALSE(press(command)) << command;
    EXPECT_EQ(world.log, (Log{"restore 5", "foreground 5"})) << command;
  }
}

// --- applications that misbehave ---

TEST_F(RunningShowTest, AnApplicationMayDieBeforeAnyCallOfACommand) {
  for (const char* command : {"begin", "current", "next", "previous", "exit", "close"}) {
    for (size_t survived = 0; survived < 12; ++survived) {
      application->dead = false;
      connect();
      application->shows = {show};
      if (application->decks.empty()) application->addDeck(u"C:\\a.pptx");
      size_t seen = 0;
      world.automation.beforeCall = [&](const std::string&) {
        if (seen++ == survived) application->dead = true;
      };
      error.clear();
      const bool sent = send(command);
      EXPECT_EQ(sent, error.empty()) << command << survived;
    }
  }
}

TEST_F(EditingTest, AnApplicationMayDieBeforeAnyCallOfAStart) {
  for (const char* command : {"begin", "current"}) {
    for (size_t survived = 0; survived < 16; ++survived) {
      application->dead = false;
      connect();
      application->shows.clear();
      size_t seen = 0;
      world.automation.beforeCall = [&](const std::string&) {
        if (seen++ == survived) application->dead = true;
      };
      error.clear();
      const bool sent = send(command);
      EXPECT_EQ(sent, error.empty()) << command << survived;
    }
  }
}

TEST_F(EditingTest, NonsenseFromAnyMemberNeverStopsAStart) {
  const AutomationValue nonsense[] = {{}, -1, INT32_MAX, u"x", AutomationRef()};
  ASSERT_TRUE(send("current"));
  const Log calls = world.log;
  for (const std::string& entry : calls) {
    if (entry.find('.') == std::string::npos) continue;  // not a member
    const std::string member = entry.substr(entry.find(' ') + 1);
    for (const AutomationValue& value : nonsense) {
      application->shows.clear();
      connect();
      world.automation.answers = {{member.substr(0, member.find(' ')), {kAutomationOk, value}}};
      error.clear();
      const bool sent = send("current");
      EXPECT_EQ(sent, error.empty()) << entry;
      EXPECT_LE(world.log.size(), 4000u) << entry;
    }
  }
}

}  // namespace
}  // namespace mrl
