// The stand-in's windows and keys, its start with a deck, and its commands.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "windows/standin_fixture.h"

namespace mrl::standin {
namespace {

std::wstring classOf(HWND window) {
  wchar_t name[256];
  return {name, static_cast<size_t>(GetClassNameW(window, name, std::size(name)))};
}

RECT rectOf(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return rect;
}

RECT monitorOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcMonitor;
}

void pressKey(WORD key, WORD modifier = 0) {
  std::vector<INPUT> events;
  const auto add = [&events](WORD code, DWORD flags) {
    if (!code) return;
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = code;
    event.ki.dwFlags = flags;
    events.push_back(event);
  };
  add(modifier, 0);
  add(key, 0);
  add(key, KEYEVENTF_KEYUP);
  add(modifier, KEYEVENTF_KEYUP);
  SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

class StandInWindowTest : public StandInTest {
 protected:
  void SetUp() override {
    StandInTest::SetUp();
    tell(L"open C:\\a.pptx");
    editing = findWindow(L"PPTFrameClass", kEditingTitle);
    ASSERT_TRUE(editing);
  }
  void startShow() {
    tell(L"show");
    show = findWindow(L"screenClass", kShowTitle);
    ASSERT_TRUE(show);
  }
  /// Keys go to the foreground window. The window manager may still change it, so the window must
  /// have stayed in front for a while.
  bool bringToFront(HWND window) {
    ULONGLONG sinceMs = GetTickCount64();
    return waitUntil([&] {
      if (GetForegroundWindow() != window) {
        SetForegroundWindow(window);
        sinceMs = GetTickCount64();
      }
      return GetTickCount64() - sinceMs > 300;
    });
  }
  /// Keys go through the system, so their effect may be delayed.
  bool comesTo(const std::wstring& deckState) {
    return waitUntil([&] { return command(L"state").ends_with(deckState); });
  }

  HWND editing = nullptr;
  HWND show = nullptr;
};

TEST_F(StandInWindowTest, TheEditingWindowIsAnOrdinaryWindow) {
  EXPECT_EQ(classOf(editing), L"PPTFrameClass");
  EXPECT_EQ(GetWindowLongPtrW(editing, GWL_STYLE) & WS_OVERLAPPEDWINDOW, WS_OVERLAPPEDWINDOW);
}

TEST_F(StandInWindowTest, TheShowWindowCoversItsMonitorAndIsInFront) {
  startShow();
  EXPECT_EQ(classOf(show), L"screenClass");
  const RECT monitor = monitorOf(show);
  const RECT window = rectOf(show);
  EXPECT_TRUE(EqualRect(&window, &monitor));
  EXPECT_TRUE(waitUntil([this] { return GetForegroundWindow() == show; }));
}

TEST_F(StandInWindowTest, ItsWindowsBelongToAProcessOfThatImageName) {
  DWORD owner = 0;
  GetWindowThreadProcessId(editing, &owner);
  EXPECT_EQ(owner, standIn.processId());
  const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, owner);
  ASSERT_TRUE(process);
  wchar_t path[1024];
  DWORD length = std::size(path);
  EXPECT_TRUE(QueryFullProcessImageNameW(process, 0, path, &length));
  CloseHandle(process);
  EXPECT_TRUE(std::wstring(path, length).ends_with(L"\\powerpnt.exe"));
}

TEST_F(StandInWindowTest, AnInsetShowIsShortOnTheSidesAsked) {
  startShow();
  const RECT monitor = monitorOf(show);
  tell(L"inset-show 10");
  RECT window = rectOf(show);
  EXPECT_EQ(window.left, monitor.left + 10);
  EXPECT_EQ(window.top, monitor.top + 10);
  EXPECT_EQ(window.right, monitor.right - 10);
  EXPECT_EQ(window.bottom, monitor.bottom - 10);
  tell(L"inset-show 17 right");
  window = rectOf(show);
  EXPECT_EQ(window.left, monitor.left);
  EXPECT_EQ(window.top, monitor.top);
  EXPECT_EQ(window.right, monitor.right - 17);
  EXPECT_EQ(window.bottom, monitor.bottom);
}

TEST_F(StandInWindowTest, AMinimisedShowIsIconicUntilItIsRestored) {
  startShow();
  tell(L"minimise-show");
  EXPECT_TRUE(IsIconic(show));
  tell(L"restore-show");
  EXPECT_FALSE(IsIconic(show));
}

TEST_F(StandInWindowTest, ArrowKeysMoveTheShowAndEscapeEndsIt) {
  startShow();
  ASSERT_TRUE(bringToFront(show));
  pressKey(VK_RIGHT);
  pressKey(VK_RIGHT);
  EXPECT_TRUE(comesTo(L"show 3"));
  pressKey(VK_LEFT);
  EXPECT_TRUE(comesTo(L"show 2"));
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(comesTo(L"show none"));
  EXPECT_EQ(command(L"log"), L"key 0x27\nkey 0x27\nkey 0x25\nkey 0x1B\n");
}

TEST_F(StandInWindowTest, F5InTheEditingWindowStartsTheShowFromSlideOne) {
  tell(L"select 4");
  ASSERT_TRUE(bringToFront(editing));
  pressKey(VK_F5);
  EXPECT_TRUE(comesTo(L"selected 4 show 1"));
  EXPECT_TRUE(logHas(L"key 0x74"));
}

TEST_F(StandInWindowTest, ShiftF5StartsTheShowFromTheSelectedSlide) {
  tell(L"select 4");
  ASSERT_TRUE(bringToFront(editing));
  pressKey(VK_F5, VK_SHIFT);
  EXPECT_TRUE(comesTo(L"selected 4 show 4"));
}

TEST_F(StandInWindowTest, AltF4InTheEditingWindowClosesTheDeck) {
  startShow();
  ASSERT_TRUE(bringToFront(editing));
  pressKey(VK_F4, VK_MENU);
  EXPECT_TRUE(comesTo(L"active none"));
  EXPECT_TRUE(logHas(L"key 0x73"));
  EXPECT_FALSE(IsWindow(editing));
  EXPECT_FALSE(IsWindow(show));
}

TEST_F(StandInWindowTest, AltF4InTheShowWindowEndsTheShow) {
  startShow();
  ASSERT_TRUE(bringToFront(show));
  pressKey(VK_F4, VK_MENU);
  EXPECT_TRUE(comesTo(L"show none"));
  EXPECT_TRUE(IsWindow(editing));
}

TEST_F(StandInWindowTest, OtherKeysAreLoggedAndDoNothing) {
  startShow();
  ASSERT_TRUE(bringToFront(show));
  pressKey('B');
  EXPECT_TRUE(waitUntil([this] { return logHas(L"key 0x42"); }));
  EXPECT_TRUE(comesTo(L"show 1"));
}

TEST_F(StandInWindowTest, TheShowPaintsAWhiteSlideNumberOnBlack) {
  startShow();
  const RECT area = rectOf(show);
  const HDC screen = GetDC(nullptr);
  const auto lightPixels = [&] {
    int light = 0;
    for (int x = area.left; x < area.right; x += 4)
      if (GetPixel(screen, x, (area.top + area.bottom) * 55 / 100) == RGB(255, 255, 255)) ++light;
    return light;
  };
  EXPECT_TRUE(waitUntil([&] { return lightPixels() > 3; }));
  EXPECT_EQ(GetPixel(screen, area.left + 2, area.top + 2), RGB(0, 0, 0));
  ReleaseDC(nullptr, screen);
}

class StandInDeckTest : public testing::Test {
 protected:
  const Apartment apartment;
  Client standIn;
};

TEST_F(StandInDeckTest, ItStartsWithADeckOnShow) {
  ASSERT_TRUE(
      standIn.start(L"powerpnt.exe", L"\"--deck=C:\\my decks\\a.pptx\" --show --slides=12"));
  EXPECT_EQ(standIn.command(L"state"),
            L"automation on; active a.pptx; deck a.pptx slides 12 selected 1 show 1");
  EXPECT_TRUE(findWindow(L"screenClass", kShowTitle));
}

TEST_F(StandInDeckTest, ItStartsWithADeckForEditing) {
  ASSERT_TRUE(standIn.start(L"wpp.exe", L"--deck=C:\\a.dps"));
  EXPECT_EQ(standIn.command(L"state"),
            L"automation on; active a.dps; deck a.dps slides 10 selected 1 show none");
  EXPECT_TRUE(findWindow(L"WPPFrameClass", L"a.dps - WPS Presentation"));
}

TEST_F(StandInDeckTest, AMonitorThatIsNotThereMeansThePrimaryOne) {
  ASSERT_TRUE(standIn.start(L"powerpnt.exe", L"--deck=C:\\a.pptx --show --monitor=9"));
  const HWND show = findWindow(L"screenClass", kShowTitle);
  ASSERT_TRUE(show);
  const RECT window = rectOf(show);
  const RECT primary{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  EXPECT_TRUE(EqualRect(&window, &primary));
}

TEST_F(StandInDeckTest, OfTwoMonitorsItShowsOnTheOneItIsTold) {
  if (GetSystemMetrics(SM_CMONITORS) < 2) GTEST_SKIP() << "needs two monitors";
  ASSERT_TRUE(standIn.start(L"powerpnt.exe", L"--deck=C:\\a.pptx --show --monitor=2"));
  const HWND show = findWindow(L"screenClass", kShowTitle);
  ASSERT_TRUE(show);
  const RECT second = rectOf(show);
  ASSERT_EQ(standIn.command(L"exit"), L"ok");
  ASSERT_EQ(standIn.command(L"show a.pptx 1"), L"ok");
  const RECT first = rectOf(findWindow(L"screenClass", kShowTitle));
  EXPECT_FALSE(EqualRect(&first, &second));
}

TEST_F(StandInDeckTest, TheLogAlsoGoesToAFile) {
  const TemporaryDeck log(L"standin.log");
  ASSERT_TRUE(standIn.start(L"powerpnt.exe", L"\"--log=" + log.path + L"\""));
  Dispatch application;
  ASSERT_EQ(findRunning(L"PowerPoint.Application", application), S_OK);
  const Dispatch presentations = standin::ask(application, L"Presentations").object();
  invoke(presentations.Get(), L"Open", DISPATCH_METHOD, {L"C:\\无.pptx", 0, 0, -1});
  ASSERT_EQ(standIn.command(L"clear-log"), L"ok");
  std::ifstream file(std::filesystem::path(log.path), std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
            "get Application.Presentations\n"
            "call Presentations.Open(\"C:\\无.pptx\", 0, 0, -1)\n");
}

TEST_F(StandInTest, CommandsMoveTheShowOfTheDeckTheyName) {
  tell(L"open \"C:\\my decks\\a.pptx\"");
  tell(L"open C:\\b.pptx 3");
  tell(L"show A.PPTX");
  tell(L"show b.pptx");
  tell(L"goto 4 \"C:\\my decks\\a.pptx\"");
  tell(L"next");
  tell(L"next b.pptx");
  tell(L"previous a.pptx");
  EXPECT_EQ(command(L"state"),
            L"automation on; active b.pptx; deck a.pptx slides 10 selected 1 show 3; "
            L"deck b.pptx slides 3 selected 1 show 3");
  tell(L"exit a.pptx");
  tell(L"close b.pptx");
  EXPECT_EQ(command(L"state"),
            L"automation on; active a.pptx; deck a.pptx slides 10 selected 1 show none");
}

TEST_F(StandInTest, ACommandThatCannotBeDoneSaysWhy) {
  EXPECT_EQ(command(L"dance"), L"error: no command \"dance\"");
  EXPECT_EQ(command(L""), L"error: no command \"\"");
  EXPECT_EQ(command(L"open"), L"error: open <path> [slides]");
  for (const wchar_t* text : {L"close", L"activate x", L"select 1", L"show", L"show x.pptx"})
    EXPECT_EQ(command(text), L"error: no such deck") << text;
  for (const wchar_t* text : {L"goto 1", L"next", L"previous", L"exit", L"exit x.pptx",
                              L"minimise-show", L"restore-show", L"inset-show 1"})
    EXPECT_EQ(command(text), L"error: no such show") << text;
  EXPECT_EQ(command(L"hwnd-zero maybe"), L"error: on or off");
  tell(L"open C:\\a.pptx");
  EXPECT_EQ(command(L"select 11"), L"error: no such slide");
  tell(L"show");
  EXPECT_EQ(command(L"goto 11"), L"error: no such slide");
}

TEST_F(StandInTest, AStandInThatIsGoneGivesNoAnswer) {
  standIn.kill();
  EXPECT_EQ(command(L"state"), L"error: no answer");
}

}  // namespace
}  // namespace mrl::standin
