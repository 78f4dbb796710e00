// The black screen over a real show: what it covers, and every way out of it.
#include <gtest/gtest.h>

#include <vector>

#include "base/command_ids.h"
#include "base/window_classes_win.h"
#include "windows/menu_window.h"
#include "windows/picture.h"
#include "windows/program.h"
#include "windows/settings_hand.h"
#include "windows/standin_fixture.h"
#include "windows/top_windows.h"

namespace mrl {
namespace {

using standin::TemporaryDeck;
using standin::waitUntil;

class BlackScreenTest : public testing::Test {
 protected:
  void startAll(const Settings& settings = {}) {
    ASSERT_TRUE(presentations.start(L"powerpnt.exe"));
    tell(L"open \"" + deck.path + L"\"");
    tell(L"show");
    program.prepare(settings);
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(program.isCounting()) << "the show has been seen";
  }
  void cover() {
    startAll();
    program.command(kCommandToggleBlack);
    ASSERT_FALSE(blackWindows().empty());
  }
  void tell(const std::wstring& command) { ASSERT_EQ(presentations.command(command), L"ok"); }
  bool showRuns() {
    return presentations.command(L"state").find(L"show none") == std::wstring::npos;
  }

  /// Topmost first.
  std::vector<HWND> blackWindows() const {
    std::vector<HWND> found = topWindows(kBlackClass);
    std::erase_if(found, [](HWND each) { return !IsWindowVisible(each); });
    return found;
  }
  bool uncovers() {
    return waitUntil([&] { return blackWindows().empty(); });
  }
  static bool isBlackAt(POINT place) {
    const HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, place.x, place.y);
    ReleaseDC(nullptr, screen);
    return colour == RGB(0, 0, 0);
  }
  /// Checks pixels: Wine lists the window under the mouse first, whatever the real z-order.
  bool isClockSeenOnBlack() const {
    const RECT clock = program.rect();
    bool seen = false;
    for (int x = clock.left; x < clock.right && !seen; x += 3) {
      seen = !isBlackAt({x, (clock.top + clock.bottom) / 2});
    }
    return seen && isBlackAt(emptyPlace());
  }
  static std::vector<RECT> monitors() {
    std::vector<RECT> rects;
    EnumDisplayMonitors(
        nullptr, nullptr,
        [](HMONITOR, HDC, RECT* rect, LPARAM list) -> BOOL {
          reinterpret_cast<std::vector<RECT>*>(list)->push_back(*rect);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&rects));
    return rects;
  }
  /// A point on a black window, away from the clock.
  POINT emptyPlace() const {
    const RECT rect = monitors().front();
    return {rect.left + 100, rect.bottom - 150};
  }
  void expectEveryMonitorCovered() const {
    // They appear one by one; the clock is raised after the last one.
    ASSERT_TRUE(waitUntil([&] { return blackWindows().size() == monitors().size(); }));
    const std::vector<HWND> windows = blackWindows();
    for (const RECT& monitor : monitors()) {
      int covering = 0;
      for (const HWND window : windows) {
        RECT rect{};
        GetWindowRect(window, &rect);
        covering += EqualRect(&rect, &monitor) ? 1 : 0;
      }
      EXPECT_EQ(covering, 1) << "the monitor that begins at " << monitor.left;
    }
    EXPECT_TRUE(waitUntil([&] { return isClockSeenOnBlack(); }));
  }

  TemporaryDeck deck{L"black.pptx"};
  standin::Client presentations;
  Program program;
};

TEST_F(BlackScreenTest, EveryMonitorIsCoveredWithTheClockAbove) {
  cover();
  expectEveryMonitorCovered();
  EXPECT_TRUE(program.isVisible());
}

TEST_F(BlackScreenTest, ABlackWindowThatIsActivatedAgainStaysBelowTheClock) {
  cover();
  ASSERT_TRUE(waitUntil([&] { return isClockSeenOnBlack(); }));
  const HWND window = blackWindows().front();
  constexpr UINT kOrderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  // Lower it first: a window already on top is not raised.
  SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, kOrderOnly);
  SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kOrderOnly);
  (void)settledPictureOf(program.rect());
  EXPECT_TRUE(isClockSeenOnBlack());
}

TEST_F(BlackScreenTest, AMonitorOfAnotherResolutionStaysCoveredFromEdgeToEdge) {
  cover();
  ASSERT_TRUE(waitUntil([&] { return blackWindows().size() == monitors().size(); }));
  for (const HWND window : blackWindows()) {
    SetWindowPos(window, nullptr, 0, 0, 300, 200, SWP_NOZORDER | SWP_NOACTIVATE);
    sendDpiChanged(window, 64, {0, 0, 300, 200});
  }
  expectEveryMonitorCovered();
}

TEST_F(BlackScreenTest, WhenTheMonitorsAreArrangedAnewEachIsCoveredAgain) {
  cover();
  ASSERT_TRUE(waitUntil([&] { return blackWindows().size() == monitors().size(); }));
  for (const HWND window : blackWindows()) {
    SetWindowPos(window, nullptr, 40, 30, 300, 200, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  SendMessageW(program.clock(), WM_DISPLAYCHANGE, 32, MAKELPARAM(1024, 768));
  expectEveryMonitorCovered();
}

TEST_F(BlackScreenTest, SettingsThatAreAskedForMeanwhileStandAboveItAndNotAfterIt) {
  cover();
  program.command(kCommandOpenSettings);
  ASSERT_TRUE(waitUntil([&] { return program.settingsWindow() != nullptr; }));
  const HWND settings = program.settingsWindow();
  EXPECT_TRUE(GetWindowLongW(settings, GWL_EXSTYLE) & WS_EX_TOPMOST);
  program.command(kCommandToggleBlack);
  EXPECT_FALSE(GetWindowLongW(settings, GWL_EXSTYLE) & WS_EX_TOPMOST);
}

TEST_F(BlackScreenTest, TwoMonitorsGetAWindowEachWithTheClockAboveBoth) {
  // The variable states the expected number, so that a lost monitor is noticed.
  const wchar_t* expected = _wgetenv(L"MARLUNE_MONITORS");
  if (expected == nullptr) GTEST_SKIP() << "this display is not known to have two monitors";
  ASSERT_TRUE(waitUntil([&] { return monitors().size() == 2; }));
  cover();
  expectEveryMonitorCovered();
  EXPECT_EQ(blackWindows().size(), 2u);
}

TEST_F(BlackScreenTest, TwoMonitorsAreBothUncoveredAgain) {
  if (_wgetenv(L"MARLUNE_MONITORS") == nullptr) GTEST_SKIP() << "as above";
  cover();
  ASSERT_TRUE(waitUntil([&] { return blackWindows().size() == 2; }));
  program.command(kCommandToggleBlack);
  EXPECT_TRUE(blackWindows().empty());
}

TEST_F(BlackScreenTest, ItsWindowsAreFramelessToolWindowsOnTop) {
  cover();
  const HWND window = blackWindows().front();
  EXPECT_EQ(GetWindowLongW(window, GWL_EXSTYLE) & (WS_EX_TOPMOST | WS_EX_TOOLWINDOW),
            WS_EX_TOPMOST | WS_EX_TOOLWINDOW);
  EXPECT_TRUE(GetWindowLongW(window, GWL_STYLE) & WS_POPUP);
  EXPECT_FALSE(GetWindowLongW(window, GWL_STYLE) & WS_CAPTION);
  wchar_t title[80] = L"";
  GetWindowTextW(window, title, 80);
  EXPECT_STREQ(title, L"Marlune 黑屏");
}

TEST_F(BlackScreenTest, ItIsBlack) {
  cover();
  EXPECT_TRUE(waitUntil([&] { return isBlackAt(emptyPlace()); }));
}

TEST_F(BlackScreenTest, WithoutAShowThereIsNone) {
  ASSERT_TRUE(program.start());
  program.command(kCommandToggleBlack);
  EXPECT_TRUE(blackWindows().empty());
}

TEST_F(BlackScreenTest, TheEndOfTheTimeBringsIt) {
  Settings settings;
  settings.duration = 4;
  settings.black = true;
  startAll(settings);
  EXPECT_TRUE(waitUntil([&] { return !blackWindows().empty(); }));
  EXPECT_TRUE(program.waitForText(L"已超时 00:02")) << "the overtime stays readable";
  EXPECT_TRUE(program.isVisible());
}

TEST_F(BlackScreenTest, TheCommandThatBroughtItTakesItAway) {
  cover();
  program.command(kCommandToggleBlack);
  EXPECT_TRUE(blackWindows().empty());
  EXPECT_TRUE(showRuns());
}

TEST_F(BlackScreenTest, EscapeOnItEndsTheShowPausesTheTimerAndThenItGoes) {
  cover();
  ASSERT_TRUE(waitUntil([&] { return GetForegroundWindow() == blackWindows().front(); }));
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(waitUntil([&] { return !showRuns(); }));
  EXPECT_TRUE(uncovers());
  EXPECT_TRUE(program.standsStill());
}

TEST_F(BlackScreenTest, EscapeOnTheClockDoesTheSame) {
  cover();
  PostMessageW(program.clock(), WM_KEYDOWN, VK_ESCAPE, 0);
  EXPECT_TRUE(waitUntil([&] { return !showRuns(); }));
  EXPECT_TRUE(uncovers());
}

TEST_F(BlackScreenTest, AShowThatEndsByItselfTakesItAlong) {
  cover();
  tell(L"exit");
  EXPECT_TRUE(uncovers());
}

TEST_F(BlackScreenTest, ARightClickOffersOneItemAndChoosingItLeaves) {
  cover();
  rightClickAt(emptyPlace());
  ASSERT_TRUE(waitUntil([&] { return menuOf(program.clock()) != nullptr; }));
  const RECT menu = menuRect(program.clock());
  EXPECT_GE(menu.bottom - menu.top, scaled(30));
  EXPECT_LT(menu.bottom - menu.top, scaled(60));
  pressKey(VK_DOWN);
  pressKey(VK_RETURN);
  EXPECT_TRUE(uncovers());
  EXPECT_TRUE(showRuns());
}

TEST_F(BlackScreenTest, ItRefusesToBeClosed) {
  cover();
  const HWND window = blackWindows().front();
  SendMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(IsWindow(window));
  EXPECT_FALSE(blackWindows().empty());
}

TEST_F(BlackScreenTest, ALeftClickAndOtherKeysMeanNothing) {
  cover();
  clickAt(emptyPlace());
  pressKey(VK_SPACE);
  pressKey(VK_F2);
  EXPECT_TRUE(program.isCounting());
  EXPECT_FALSE(blackWindows().empty());
  EXPECT_TRUE(showRuns());
}

TEST_F(BlackScreenTest, TheEndOfTheProgramTakesItAlong) {
  cover();
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  DWORD exitCode = 99;
  ASSERT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(exitCode, 0u);
  EXPECT_TRUE(blackWindows().empty());
}

/// The settings window is open with invalid input, and is covered first by the show and then by the
/// black screen.
class BlackScreenQuestionTest : public SettingsHand {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(open(quiet()));
    retype(kSecondsBox, L"70");
    ASSERT_TRUE(reads(kSecondsBox, L"70"));
    ASSERT_TRUE(presentations.start(L"powerpnt.exe"));
    ASSERT_EQ(presentations.command(L"open \"" + deck.path + L"\""), L"ok");
    ASSERT_EQ(presentations.command(L"show"), L"ok");
    ASSERT_TRUE(program.isCounting());
    program.command(kCommandToggleBlack);
    ASSERT_FALSE(topWindows(kBlackClass).empty());
  }

  TemporaryDeck deck{L"black.pptx"};
  standin::Client presentations;
};

TEST_F(BlackScreenQuestionTest, TheQuestionBeforeTheExitStandsAboveIt) {
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  ASSERT_TRUE(asks());
  EXPECT_TRUE(GetWindowLongW(question(), GWL_EXSTYLE) & WS_EX_TOPMOST);
  EXPECT_FALSE(GetWindowLongW(window(), GWL_EXSTYLE) & WS_EX_TOPMOST)
      << "nobody has asked for the window itself";
  answer(IDNO);
  EXPECT_TRUE(waitUntil([&] { return question() == nullptr; }));
}

}  // namespace
}  // namespace mrl
