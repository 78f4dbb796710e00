// The real black windows, over small areas of the desktop instead of whole monitors.
#include "core/black_screen_win.h"

#include <gtest/gtest.h>

#include "base/geometry_win.h"
#include "base/window_classes_win.h"
#include "overlay/test_window_class_win.h"

namespace mrl {
namespace {

const std::vector<Monitor> kTwoPlaces = {{u"first", {10, 20, 110, 100}},
                                         {u"second", {110, 20, 230, 100}}};

class BlackScreenWinTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(windowClass.registered); }
  void TearDown() override { black.uncover(); }

  /// The black window that covers exactly `place`; null if there is none.
  static HWND windowOver(const Rect& place) {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, kBlackClass, nullptr)) != nullptr) {
      RECT rect{};
      GetWindowRect(window, &rect);
      if (rectFrom(rect) == place) return window;
    }
    return nullptr;
  }
  static HWND makeWindow(DWORD extendedStyle) {
    return CreateWindowExW(extendedStyle, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 300, 20, 50, 50,
                           nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  }

  TestWindowClass windowClass{kBlackClass};
  BlackScreenWin black{GetModuleHandleW(nullptr), &windowClass};
};

TEST_F(BlackScreenWinTest, EveryMonitorGetsAWindowThatCoversIt) {
  black.cover(kTwoPlaces);
  for (const Monitor& each : kTwoPlaces) {
    EXPECT_TRUE(IsWindowVisible(windowOver(each.rect)));
  }
}

TEST_F(BlackScreenWinTest, ItKnowsEachOfItsWindowsAndNoOther) {
  black.cover(kTwoPlaces);
  EXPECT_TRUE(black.contains(handleFrom(windowOver(kTwoPlaces[0].rect))));
  EXPECT_TRUE(black.contains(handleFrom(windowOver(kTwoPlaces[1].rect))));
  EXPECT_FALSE(black.contains(handleFrom(GetDesktopWindow())));
}

TEST_F(BlackScreenWinTest, TheFirstOfItsWindowsTakesTheKeyboard) {
  const HWND other = makeWindow(0);
  SetForegroundWindow(other);
  black.cover(kTwoPlaces);
  EXPECT_EQ(GetActiveWindow(), windowOver(kTwoPlaces[0].rect));
  DestroyWindow(other);
}

TEST_F(BlackScreenWinTest, AMonitorThatMovedTakesItsOwnWindowAlong) {
  black.cover(kTwoPlaces);
  black.follow({u"second", {0, 200, 90, 260}});
  EXPECT_TRUE(windowOver(kTwoPlaces[0].rect));
  EXPECT_TRUE(windowOver({0, 200, 90, 260}));
}

TEST_F(BlackScreenWinTest, RaisingItLeavesTheActiveWindowActive) {
  black.cover(kTwoPlaces);
  const HWND other = makeWindow(0);
  SetActiveWindow(other);
  black.raise();
  EXPECT_EQ(GetActiveWindow(), other);
  DestroyWindow(other);
}

TEST_F(BlackScreenWinTest, RaisingPutsAllOfItAboveWhatCameOnTopSince) {
  black.cover(kTwoPlaces);
  const HWND rival = makeWindow(WS_EX_TOPMOST);
  SetWindowPos(rival, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  windowClass.insertedAfter.clear();
  black.raise();
  EXPECT_EQ(windowClass.insertedAfter, (std::vector<HWND>{HWND_TOPMOST, HWND_TOPMOST}));
  DestroyWindow(rival);
}

TEST_F(BlackScreenWinTest, UncoveringDestroysAllOfItsWindows) {
  black.cover(kTwoPlaces);
  black.uncover();
  EXPECT_FALSE(FindWindowW(kBlackClass, nullptr));
  EXPECT_FALSE(black.isCovering());
}

}  // namespace
}  // namespace mrl
