// The clock's real window.
#include "overlay/clock_window_win.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/geometry_win.h"
#include "base/replaced_import_win.h"
#include "base/wide_win.h"
#include "overlay/clock_window_contract.h"
#include "overlay/test_window_class_win.h"

namespace mrl {
namespace {

class RealClockWindowFixture : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(windowClass.registered); }
  ClockWindow& window() { return clock; }

  TestWindowClass windowClass{L"Marlune.Native.Timer"};
  ClockWindowWin clock{GetModuleHandleW(nullptr), &windowClass};
};
INSTANTIATE_TYPED_TEST_SUITE_P(Real, ClockWindowContract, RealClockWindowFixture);

class ClockWindowWinTest : public RealClockWindowFixture {
 protected:
  void SetUp() override {
    RealClockWindowFixture::SetUp();
    ASSERT_TRUE(clock.create(kContractPlace, kContractSize));
  }
  LONG_PTR style(int index) const { return GetWindowLongPtrW(clock.window(), index); }
  /// As another program would read it.
  std::u16string publishedText() const {
    wchar_t text[256] = L"";
    const HANDLE atom = GetPropW(clock.window(), L"Marlune.Text");
    const UINT length =
        GlobalGetAtomNameW(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)), text, 256);
    return u16From({text, length});
  }
};

/// Another always-on-top window, competing for the top.
class Rival {
 public:
  Rival() {
    window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 0, 0, 50,
                             50, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  Rival(const Rival&) = delete;
  Rival& operator=(const Rival&) = delete;
  ~Rival() { DestroyWindow(window); }

  bool isAbove(HWND below) const {
    for (HWND next = window; next; next = GetWindow(next, GW_HWNDNEXT)) {
      if (next == below) return true;
    }
    return false;
  }

 private:
  HWND window = nullptr;
};

BOOL WINAPI taskBarAtTheTop(HMONITOR /*monitor*/, MONITORINFO* info) {
  info->rcMonitor = {0, 0, 1000, 800};
  info->rcWork = {0, 50, 1000, 800};
  return TRUE;
}

UINT WINAPI dpiOfItsMonitor(HWND /*window*/) { return 144; }

TEST_F(ClockWindowWinTest, ItIsALayeredToolWindowOnTop) {
  const LONG_PTR wanted = WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_LAYERED;
  EXPECT_EQ(style(GWL_EXSTYLE) & wanted, wanted);
}

TEST_F(ClockWindowWinTest, ItIsAPopupWithoutFrame) {
  EXPECT_TRUE(style(GWL_STYLE) & WS_POPUP);
  EXPECT_FALSE(style(GWL_STYLE) & (WS_CAPTION | WS_THICKFRAME | WS_BORDER));
  EXPECT_EQ(clientSizeOf(clock.window()), (Size{183, 82}));
}

TEST_F(ClockWindowWinTest, ItsTitleIsTheProgramsName) {
  wchar_t title[80] = L"";
  GetWindowTextW(clock.window(), title, 80);
  EXPECT_EQ(std::wstring(title), L"Marlune");
}

TEST_F(ClockWindowWinTest, TheCreationParameterReachesTheProcedure) {
  EXPECT_FALSE(windowClass.messages.empty());
}

TEST_F(ClockWindowWinTest, ShowingAndRaisingLeaveTheActiveWindowActive) {
  const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  SetActiveWindow(other);
  ASSERT_EQ(GetActiveWindow(), other);
  clock.show();
  clock.raise();
  clock.moveTo({10, 10});
  clock.resize({200, 100});
  clock.setRect(kContractRect);
  EXPECT_EQ(GetActiveWindow(), other);
  DestroyWindow(other);
}

TEST_F(ClockWindowWinTest, ShowingPutsItAboveOtherWindowsOnTop) {
  clock.show();
  const Rival rival;
  ASSERT_TRUE(rival.isAbove(clock.window()));
  clock.show();
  EXPECT_FALSE(rival.isAbove(clock.window()));
  EXPECT_TRUE(style(GWL_EXSTYLE) & WS_EX_TOPMOST);
}

TEST_F(ClockWindowWinTest, ShowingTakesItOutOfTheWindowsOnTopAndPutsItBackIn) {
  clock.show();
  windowClass.insertedAfter.clear();
  clock.show();
  EXPECT_EQ(windowClass.insertedAfter, (std::vector<HWND>{HWND_NOTOPMOST, HWND_TOPMOST}));
}

TEST_F(ClockWindowWinTest, RaisingPutsAVisibleClockAboveOtherWindowsOnTop) {
  clock.show();
  const Rival rival;
  ASSERT_TRUE(rival.isAbove(clock.window()));
  clock.raise();
  EXPECT_FALSE(rival.isAbove(clock.window()));
}

TEST_F(ClockWindowWinTest, InvalidatingAsksForOnePaintWithoutErasing) {
  clock.show();
  ValidateRect(clock.window(), nullptr);
  clock.invalidate();
  RECT update{};
  EXPECT_TRUE(GetUpdateRect(clock.window(), &update, FALSE));
  EXPECT_EQ(update.right - update.left, 183);
  EXPECT_EQ(update.bottom - update.top, 82);
}

TEST_F(ClockWindowWinTest, DroppingTheRegionFreesTheWholeWindow) {
  clock.show();
  SetWindowRgn(clock.window(), CreateRectRgn(0, 0, 10, 10), TRUE);
  ValidateRect(clock.window(), nullptr);
  clock.dropRegion();
  RECT box{};
  EXPECT_EQ(GetWindowRgnBox(clock.window(), &box), ERROR);  // there is no region
  EXPECT_TRUE(GetUpdateRect(clock.window(), nullptr, FALSE));
}

TEST_F(ClockWindowWinTest, AMoveIsHandedToTheSystemAsAPressOnTheCaption) {
  clock.captureMouse();
  clock.beginMove();
  EXPECT_NE(GetCapture(), clock.window());
  EXPECT_TRUE(windowClass.received(WM_NCLBUTTONDOWN, HTCAPTION));
}

TEST_F(ClockWindowWinTest, TheMouseIsCapturedAndReleased) {
  clock.show();
  clock.captureMouse();
  EXPECT_EQ(GetCapture(), clock.window());
  clock.releaseMouse();
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ClockWindowWinTest, TheCursorIsTheSystems) {
  SetCursorPos(123, 234);
  EXPECT_EQ(clock.cursor(), (Point{123, 234}));
}

TEST_F(ClockWindowWinTest, TheWorkAreaIsTheMonitorLessItsTaskBar) {
  const ReplacedImport<decltype(taskBarAtTheTop)> system("GetMonitorInfoW", taskBarAtTheTop);
  EXPECT_EQ(clock.nearestWorkArea(), (Rect{0, 50, 1000, 800}));
}

TEST_F(ClockWindowWinTest, ItsDpiIsThatOfItsMonitorAndNotOfTheSystem) {
  const ReplacedImport<decltype(dpiOfItsMonitor)> system("GetDpiForWindow", dpiOfItsMonitor);
  EXPECT_EQ(clock.dpi(), 144);
}

TEST_F(ClockWindowWinTest, ItsTextIsPublished) {
  clock.setText(u"已超时 01:40:00");
  EXPECT_EQ(publishedText(), u"已超时 01:40:00");
}

TEST_F(ClockWindowWinTest, ANewTextReplacesTheOldOneAndFreesItsAtom) {
  clock.setText(u"marlune first");
  clock.setText(u"marlune second");
  EXPECT_EQ(publishedText(), u"marlune second");
  EXPECT_EQ(GlobalFindAtomW(L"marlune first"), 0);
}

TEST_F(ClockWindowWinTest, AnEmptyTextPublishesNothing) {
  clock.setText(u"15:00");
  clock.setText(u"");
  EXPECT_EQ(GetPropW(clock.window(), L"Marlune.Text"), nullptr);
}

TEST_F(ClockWindowWinTest, ATextTooLongForAnAtomPublishesNothing) {
  clock.setText(u"15:00");
  clock.setText(std::u16string(300, u'8'));
  EXPECT_EQ(GetPropW(clock.window(), L"Marlune.Text"), nullptr);
}

TEST_F(ClockWindowWinTest, ItsEndFreesThePublishedText) {
  clock.setText(u"marlune last");
  clock.destroy();
  EXPECT_EQ(GlobalFindAtomW(L"marlune last"), 0);
}

TEST_F(ClockWindowWinTest, WhileItGoesItStillAnswers) {
  bool answered = false;
  windowClass.onDestroy = [&](HWND) { answered = clock.rect() == kContractRect; };
  clock.destroy();
  EXPECT_TRUE(answered);
}

TEST(ClockWindowWinFailureTest, WhenItHasGoneNothingElseIsPaintedAnewInItsPlace) {
  const HWND other = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50,
                                     50, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  ValidateRect(other, nullptr);
  ClockWindowWin(GetModuleHandleW(nullptr), nullptr).invalidate();
  EXPECT_FALSE(GetUpdateRect(other, nullptr, FALSE));
  DestroyWindow(other);
}

TEST(ClockWindowWinFailureTest, WithoutItsClassItCantBeMade) {
  ClockWindowWin clock(GetModuleHandleW(nullptr), nullptr);
  EXPECT_FALSE(clock.create(kContractPlace, kContractSize));
  EXPECT_FALSE(clock.handle());
}

}  // namespace
}  // namespace mrl
