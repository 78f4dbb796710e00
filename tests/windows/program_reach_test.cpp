// A presentation program that is missing from the running object table is reached through its
// windows.
#include <gtest/gtest.h>

#include "base/wide_win.h"
#include "http/raw_client_win.h"
#include "presentation/automation_win.h"
#include "presentation/window_system_win.h"
#include "windows/program.h"
#include "windows/standin_fixture.h"

namespace mrl {
namespace {

using standin::Client;
using standin::TemporaryDeck;
using standin::waitUntil;

const std::wstring kAsked = L"get Window.NativeObject\n";
const std::wstring kPolled = L"get Application.Presentations\n";

int countOf(const std::wstring& words, Client& program) {
  const std::wstring log = program.command(L"log");
  int count = 0;
  for (size_t at = 0; (at = log.find(words, at)) != std::wstring::npos; ++at) ++count;
  return count;
}

/// Single searches for an application with the real automation.
class AutomationReachTest : public testing::Test {
 protected:
  void start(Client& program, const std::wstring& image, const std::wstring& arguments) {
    ASSERT_TRUE(program.start(image, arguments));
  }
  AutomationRef running(std::u16string_view progId) {
    WindowSystemWin windows;
    ProgramWindows programs(windows);
    return automation.running(progId, programs);
  }
  AutomationRef powerPoint() { return running(u"PowerPoint.Application"); }
  std::u16string nameOf(const AutomationRef& application) {
    AutomationValue name;
    if (application) (void)automation.call(application, u"Name", DispatchKind::Get, &name, {});
    const std::u16string* text = std::get_if<std::u16string>(&name);
    return text ? *text : u"";
  }

  const standin::Apartment apartment;
  AutomationWin automation;
  Client program;
};

TEST_F(AutomationReachTest, AnApplicationThatIsNotListedIsFoundByTheWindowOfADeck) {
  start(program, L"powerpnt.exe", L"--unlisted --deck=C:\\a.pptx");
  EXPECT_EQ(nameOf(powerPoint()), u"PowerPoint");
  EXPECT_EQ(countOf(kAsked, program), 1);
}

TEST_F(AutomationReachTest, OneThatIsListedIsNotAskedByItsWindows) {
  start(program, L"powerpnt.exe", L"--deck=C:\\a.pptx");
  EXPECT_EQ(nameOf(powerPoint()), u"PowerPoint");
  EXPECT_EQ(countOf(kAsked, program), 0);
}

TEST_F(AutomationReachTest, WpsIsFoundByItsFirstNameOnly) {
  start(program, L"wpp.exe", L"--unlisted --deck=C:\\a.dps");
  EXPECT_FALSE(running(u"WPP.Application"));
  EXPECT_FALSE(powerPoint());
  EXPECT_EQ(countOf(kAsked, program), 0);
  EXPECT_EQ(nameOf(running(u"KWPP.Application")), u"WPS Presentation");
}

TEST_F(AutomationReachTest, ListedUnderItsOtherNameWpsIsNotAskedByItsWindows) {
  start(program, L"wpp.exe", L"--progid=WPP.Application --deck=C:\\a.dps");
  EXPECT_FALSE(running(u"KWPP.Application"));
  EXPECT_EQ(countOf(kAsked, program), 0);
  EXPECT_EQ(nameOf(running(u"WPP.Application")), u"WPS Presentation");
}

TEST_F(AutomationReachTest, AWindowThatAnswersNothingOrNonsenseLeavesItToTheNext) {
  start(program, L"powerpnt.exe", L"--unlisted --deck=C:\\a.pptx --show");
  for (const wchar_t* fault : {L"fail NativeObject 1", L"nonsense NativeObject 1",
                               L"nonsense Application 1", L"fail Application 1"}) {
    ASSERT_EQ(program.command(fault), L"ok");
    ASSERT_EQ(program.command(L"clear-log"), L"ok");
    EXPECT_EQ(nameOf(powerPoint()), u"PowerPoint") << testing::PrintToString(std::wstring(fault));
    EXPECT_EQ(countOf(kAsked, program), 2);
  }
}

TEST_F(AutomationReachTest, WhereNoWindowLeadsAnywhereEachIsAskedOnceAndNothingIsFound) {
  start(program, L"powerpnt.exe", L"--unlisted --deck=C:\\a.pptx --show");
  for (const wchar_t* fault : {L"fail NativeObject", L"nonsense NativeObject",
                               L"nonsense Application", L"die-on NativeObject"}) {
    ASSERT_EQ(program.command(L"clear-log"), L"ok");
    ASSERT_EQ(program.command(fault), L"ok");
    EXPECT_FALSE(powerPoint());
    if (std::wstring(fault).starts_with(L"die-on")) break;
    EXPECT_EQ(countOf(kAsked, program), 2);
    ASSERT_EQ(program.command(L"clear-faults"), L"ok");
  }
}

TEST_F(AutomationReachTest, AWithdrawnProgramIsNotFoundByItsWindows) {
  start(program, L"powerpnt.exe", L"--deck=C:\\a.pptx");
  ASSERT_EQ(program.command(L"withdraw"), L"ok");
  EXPECT_FALSE(powerPoint());
}

/// The real program together with an unlisted presentation program.
class ProgramReachTest : public testing::Test {
 protected:
  void startPresentations(const std::wstring& arguments = L"") {
    ASSERT_TRUE(presentations.start(L"powerpnt.exe", L"--unlisted " + arguments));
  }
  void open() { tell(L"open \"" + demo.path + L"\""); }
  void startTimer(Settings settings = {}) {
    port = static_cast<int32_t>(somePort());
    settings.remotePort = static_cast<uint32_t>(port);
    timer.prepare(settings);
    ASSERT_TRUE(timer.start());
  }
  void tell(const std::wstring& command) { ASSERT_EQ(presentations.command(command), L"ok"); }
  bool comesTo(const std::string& words) {
    return waitUntil([&] {
      RawClient client(port);
      client.send(get("/api/state"));
      return client.readAll().find(words) != std::string::npos;
    });
  }
  int remote(const std::string& command) {
    RawClient client(port);
    client.send(post("/api/" + command));
    return statusOf(client.readAll());
  }
  bool isTold(const std::wstring& words) {
    return waitUntil([&] { return countOf(words, presentations) > 0; });
  }

  const Winsock winsock;
  TemporaryDeck demo{L"demo.pptx"};
  Client presentations;
  Program timer;
  int32_t port = 0;
};

TEST_F(ProgramReachTest, ItsShowIsFollowedByProviderAndSlide) {
  startPresentations();
  open();
  startTimer();
  tell(L"show");
  EXPECT_TRUE(comesTo("\"showing\":true,\"slide\":1,\"provider\":\"PowerPoint.Application\""));
  EXPECT_TRUE(timer.isCounting());
  tell(L"goto 4");
  EXPECT_TRUE(comesTo("\"slide\":4"));
}

TEST_F(ProgramReachTest, ItsFileIsKnownByItsPath) {
  startPresentations(L"--show-title=Now");
  open();
  Settings settings;
  settings.skipList = {u16From(demo.path)};
  startTimer(settings);
  tell(L"show");
  ASSERT_TRUE(comesTo("\"showing\":true,\"slide\":1"));
  EXPECT_TRUE(timer.waitForText(L"15:00") && timer.standsStill()) << "it is excluded";
}

TEST_F(ProgramReachTest, ItsShowIsMovedAndEndedFromThePhone) {
  startPresentations();
  open();
  startTimer();
  tell(L"show");
  ASSERT_TRUE(comesTo("\"slide\":1"));
  EXPECT_EQ(remote("next"), 200);
  EXPECT_TRUE(comesTo("\"slide\":2"));
  EXPECT_EQ(remote("next"), 200);
  EXPECT_EQ(remote("previous"), 200);
  EXPECT_TRUE(comesTo("\"slide\":2"));
  EXPECT_EQ(remote("begin"), 200);
  EXPECT_TRUE(comesTo("\"slide\":1"));
  EXPECT_EQ(remote("exit"), 200);
  EXPECT_TRUE(comesTo("\"showing\":false"));
  EXPECT_EQ(countOf(L"key ", presentations), 0) << "all by automation";
  EXPECT_EQ(countOf(L"call SlideShowView.GotoSlide(1)", presentations), 1);
}

TEST_F(ProgramReachTest, ItsDeckIsClosedFromThePhone) {
  startPresentations();
  open();
  startTimer();
  EXPECT_EQ(remote("close"), 200);
  EXPECT_TRUE(isTold(L"call Presentation.Close()"));
  EXPECT_EQ(presentations.command(L"state"), L"automation unlisted; active none");
}

TEST_F(ProgramReachTest, ItsWindowsAreAskedOnceAPollAndNoMoreOnceItShowsSomething) {
  startPresentations();
  open();
  startTimer();
  ASSERT_TRUE(waitUntil([&] { return countOf(kPolled, presentations) >= 4; }));
  const std::wstring log = presentations.command(L"log");
  EXPECT_EQ(log.find(kAsked + kAsked), std::wstring::npos);
  EXPECT_LE(countOf(kAsked, presentations), countOf(kPolled, presentations) + 1);
  tell(L"show");
  ASSERT_TRUE(comesTo("\"slide\":1"));
  tell(L"clear-log");
  ASSERT_TRUE(waitUntil([&] { return countOf(kPolled, presentations) >= 3; }));
  EXPECT_EQ(countOf(kAsked, presentations), 0);
}

TEST_F(ProgramReachTest, AShowWhoseWindowsLeadNowhereIsStillSeenOnTheDesktop) {
  startPresentations();
  open();
  tell(L"fail NativeObject");
  tell(L"show");
  startTimer();
  EXPECT_TRUE(timer.isCounting());
  EXPECT_TRUE(comesTo("\"showing\":true,\"slide\":0"));
  tell(L"clear-faults");
  EXPECT_TRUE(comesTo("\"slide\":1")) << "found as soon as they do";
}

TEST_F(ProgramReachTest, AProgramThatHangsIsSeenOnTheDesktopAndTheClockGoesOn) {
  startPresentations();
  open();
  tell(L"show");
  constexpr ULONGLONG kFrozenMs = 25'000;
  const ULONGLONG beforeMs = GetTickCount64();
  tell(L"freeze " + std::to_wstring(kFrozenMs));
  startTimer();
  EXPECT_TRUE(timer.isCounting());
  EXPECT_TRUE(comesTo("\"showing\":true,\"slide\":0"));
  EXPECT_LT(GetTickCount64() - beforeMs, kFrozenMs) << "it has been asleep all the time";
}

/// A window of this process that looks like one of PowerPoint's.
class ForeignWindow {
 public:
  ForeignWindow() {
    for (const wchar_t* name : {L"PPTFrameClass", L"mdiClass"}) {
      WNDCLASSW windowClass = {};
      windowClass.lpfnWndProc = procedure;
      windowClass.hInstance = GetModuleHandleW(nullptr);
      windowClass.lpszClassName = name;
      RegisterClassW(&windowClass);
    }
    window = CreateWindowExW(0, L"PPTFrameClass", L"demo.pptx", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                             0, 300, 200, nullptr, nullptr, nullptr, nullptr);
    CreateWindowExW(0, L"mdiClass", L"", WS_CHILD, 0, 0, 1, 1, window, nullptr, nullptr, nullptr);
  }
  ForeignWindow(const ForeignWindow&) = delete;
  ~ForeignWindow() { DestroyWindow(window); }
  static inline int timesAsked = 0;

 private:
  static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wide, LPARAM narrow) {
    if (message == WM_GETOBJECT && static_cast<LONG>(narrow) == OBJID_NATIVEOM) ++timesAsked;
    return DefWindowProcW(hwnd, message, wide, narrow);
  }
  HWND window = nullptr;
};

TEST_F(ProgramReachTest, AWindowOfTheSameClassInAnotherProgramIsNotAsked) {
  const ForeignWindow foreign;
  startPresentations();
  open();
  startTimer();
  EXPECT_TRUE(waitUntil([&] { return countOf(kAsked, presentations) >= 2; }));
  EXPECT_EQ(ForeignWindow::timesAsked, 0);
}

}  // namespace
}  // namespace mrl
