// The real toolbar of resize mode.
#include "overlay/resize_toolbar_win.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/wide_win.h"
#include "overlay/clock_geometry.h"
#include "overlay/resize_toolbar_contract.h"
#include "overlay/test_window_class_win.h"

namespace mrl {
namespace {

class RealToolbarFixture : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(clock.create({40, 50}, {183, 82})); }
  ResizeToolbar& toolbar() { return bar; }
  bool exists() const { return bar.window() != nullptr; }

  TestWindowClass clockClass{L"Marlune.Native.Timer"};
  TestWindowClass barClass{L"Marlune.Native.Resize"};
  ClockWindowWin clock{GetModuleHandleW(nullptr), &clockClass};
  ResizeToolbarWin bar{GetModuleHandleW(nullptr), &barClass, clock};
};
INSTANTIATE_TYPED_TEST_SUITE_P(Real, ResizeToolbarContract, RealToolbarFixture);

class ResizeToolbarWinTest : public RealToolbarFixture {
 protected:
  Rect screenRect(HWND window) const {
    RECT rect{};
    GetWindowRect(window, &rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
  }
  /// In the toolbar's client area.
  Rect buttonRect(int command) const {
    RECT rect{};
    GetWindowRect(button(command), &rect);
    MapWindowPoints(nullptr, bar.window(), reinterpret_cast<POINT*>(&rect), 2);
    return {rect.left, rect.top, rect.right, rect.bottom};
  }
  HWND button(int command) const { return GetDlgItem(bar.window(), command); }
  std::u16string text(HWND window) const {
    wchar_t text[80] = L"";
    const int length = GetWindowTextW(window, text, 80);
    return u16From({text, static_cast<size_t>(length)});
  }
  LOGFONTW font(HWND window) const {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font,
               &font);
    return font;
  }
};

TEST_F(ResizeToolbarWinTest, ItIsASmallPopupOnTopThatBelongsToTheClock) {
  bar.show({40, 138}, 96);
  const LONG_PTR style = GetWindowLongPtrW(bar.window(), GWL_STYLE);
  const LONG_PTR extended = GetWindowLongPtrW(bar.window(), GWL_EXSTYLE);
  EXPECT_EQ(style & (WS_POPUP | WS_BORDER), static_cast<LONG_PTR>(WS_POPUP | WS_BORDER));
  EXPECT_EQ(extended & (WS_EX_TOPMOST | WS_EX_TOOLWINDOW), WS_EX_TOPMOST | WS_EX_TOOLWINDOW);
  EXPECT_EQ(GetWindow(bar.window(), GW_OWNER), clock.window());
  EXPECT_EQ(text(bar.window()), u"调整大小");
}

TEST_F(ResizeToolbarWinTest, ItStandsWhereItWasAskedToInItsFullSize) {
  bar.show({40, 138}, 96);
  EXPECT_EQ(screenRect(bar.window()), (Rect{40, 138, 262, 178}));
  EXPECT_TRUE(IsWindowVisible(bar.window()));
}

TEST_F(ResizeToolbarWinTest, ItHasTwoButtons) {
  bar.show({40, 138}, 96);
  EXPECT_EQ(text(button(103)), u"确定");
  EXPECT_EQ(text(button(104)), u"恢复默认");
  EXPECT_EQ(buttonRect(103), (Rect{6, 5, 80, 33}));
  EXPECT_EQ(buttonRect(104), (Rect{86, 5, 212, 33}));
}

TEST_F(ResizeToolbarWinTest, AtAHigherDpiAllOfItGrows) {
  bar.show({40, 138}, 144);
  EXPECT_EQ(screenRect(bar.window()), (Rect{40, 138, 373, 198}));
  EXPECT_EQ(buttonRect(103), (Rect{9, 8, 120, 50}));
  EXPECT_EQ(buttonRect(104), (Rect{129, 8, 318, 50}));
  EXPECT_EQ(font(button(103)).lfHeight, -21);
}

TEST_F(ResizeToolbarWinTest, OnAMonitorOfAnotherResolutionAllOfItIsLaidOutAnew) {
  bar.show({40, 138}, 96);
  bar.place({60, 170}, 144);
  EXPECT_EQ(screenRect(bar.window()), (Rect{60, 170, 393, 230}));
  EXPECT_EQ(buttonRect(103), (Rect{9, 8, 120, 50}));
  EXPECT_EQ(buttonRect(104), (Rect{129, 8, 318, 50}));
  EXPECT_EQ(font(button(103)).lfHeight, -21);
  EXPECT_EQ(font(button(104)).lfHeight, -21);
  bar.place({40, 138}, 96);
  EXPECT_EQ(screenRect(bar.window()), (Rect{40, 138, 262, 178}));
  EXPECT_EQ(font(button(104)).lfHeight, -14);
}

TEST_F(ResizeToolbarWinTest, ANewLayoutFreesTheOldFont) {
  bar.show({40, 138}, 96);
  const auto used = reinterpret_cast<HGDIOBJ>(SendMessageW(button(103), WM_GETFONT, 0, 0));
  bar.place({40, 138}, 144);
  EXPECT_EQ(GetObjectType(used), 0U);
}

TEST_F(ResizeToolbarWinTest, ItIsMadeOnTheMonitorThatItWillStandOn) {
  bar.show({40, 138}, 96);
  EXPECT_EQ(barClass.createdAt, (Point{40, 138}));
}

TEST_F(ResizeToolbarWinTest, ShowingItAgainKeepsTheOneThereIs) {
  bar.show({40, 138}, 96);
  const HWND first = bar.window();
  bar.show({50, 150}, 96);
  EXPECT_EQ(bar.window(), first);
}

TEST_F(ResizeToolbarWinTest, TheButtonsAreChildrenThatTakeTheTabKey) {
  bar.show({40, 138}, 96);
  const LONG_PTR wanted = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
  for (const ToolbarButton& row : kToolbarButtons) {
    EXPECT_EQ(GetWindowLongPtrW(button(row.command), GWL_STYLE) & wanted, wanted);
  }
}

TEST_F(ResizeToolbarWinTest, TheButtonsHaveTheToolbarsFont) {
  bar.show({40, 138}, 96);
  for (const ToolbarButton& row : kToolbarButtons) {
    const LOGFONTW used = font(button(row.command));
    EXPECT_EQ(std::wstring(used.lfFaceName), L"Segoe UI");
    EXPECT_EQ(used.lfHeight, -14);
    EXPECT_EQ(used.lfWeight, 400);
    EXPECT_EQ(used.lfQuality, CLEARTYPE_QUALITY);
  }
}

TEST_F(ResizeToolbarWinTest, APressedButtonSendsItsCommandToTheToolbar) {
  bar.show({40, 138}, 96);
  SendMessageW(button(103), BM_CLICK, 0, 0);
  SendMessageW(button(104), BM_CLICK, 0, 0);
  EXPECT_TRUE(barClass.received(WM_COMMAND, MAKEWPARAM(103, BN_CLICKED)));
  EXPECT_TRUE(barClass.received(WM_COMMAND, MAKEWPARAM(104, BN_CLICKED)));
}

TEST_F(ResizeToolbarWinTest, ItFollowsWithoutChangingItsSize) {
  bar.show({40, 138}, 96);
  bar.place({60, 170}, 96);
  EXPECT_EQ(screenRect(bar.window()), (Rect{60, 170, 282, 210}));
}

TEST_F(ResizeToolbarWinTest, FollowingTheClockLiftsItAboveOtherWindowsOnTop) {
  bar.show({40, 138}, 96);
  barClass.insertedAfter.clear();
  bar.place({60, 170}, 96);
  EXPECT_EQ(barClass.insertedAfter, (std::vector<HWND>{HWND_TOPMOST}));
}

TEST_F(ResizeToolbarWinTest, ShowingAndPlacingItActivatesNothing) {
  const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  SetActiveWindow(other);
  bar.show({40, 138}, 96);
  bar.place({60, 170}, 96);
  EXPECT_EQ(GetActiveWindow(), other);
  DestroyWindow(other);
}

TEST_F(ResizeToolbarWinTest, ItGoesWithTheClock) {
  bar.show({40, 138}, 96);
  clock.destroy();
  EXPECT_FALSE(bar.window());
  bar.remove();
}

TEST_F(ResizeToolbarWinTest, RemovingItFreesItsFont) {
  bar.show({40, 138}, 96);
  const auto used = reinterpret_cast<HGDIOBJ>(SendMessageW(button(103), WM_GETFONT, 0, 0));
  ASSERT_NE(GetObjectType(used), 0U);
  bar.remove();
  EXPECT_EQ(GetObjectType(used), 0U);
}

TEST(ResizeToolbarWinFailureTest, WithoutItsClassItIsSimplyNotThere) {
  const ClockWindowWin clock(GetModuleHandleW(nullptr), nullptr);
  ResizeToolbarWin bar(GetModuleHandleW(nullptr), nullptr, clock);
  bar.show({40, 138}, 96);
  EXPECT_FALSE(bar.window());
}

}  // namespace
}  // namespace mrl
