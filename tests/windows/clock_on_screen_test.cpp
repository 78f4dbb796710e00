// The clock's window as a user sees it: its position, dragging and resizing, and what of it is
// saved.
#include <gtest/gtest.h>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "settings/settings_format.h"
#include "windows/program.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

class ClockOnScreenTest : public testing::Test {
 protected:
  void startAt(int x, int y) {
    Settings settings;
    settings.windowX = x;
    settings.windowY = y;
    program.prepare(settings);
    ASSERT_TRUE(program.start());
  }
  POINT middle() {
    const RECT rect = program.rect();
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  /// Inside the corner's grip, but not on the rounded part that lets the mouse through.
  POINT bottomRight() {
    const RECT rect = program.rect();
    return {rect.right - scaled(6), rect.bottom - scaled(6)};
  }
  POINT topLeft() {
    const RECT rect = program.rect();
    return {rect.left + scaled(6), rect.top + scaled(6)};
  }
  /// Drags like a user: releases the button only once the clock has reached `expected`.
  void drag(POINT from, int byX, int byY, RECT expected) {
    pressAt(from);
    EXPECT_TRUE(waitUntil([&] { return program.isHeldByMouse(); }));
    moveTo({from.x + byX / 2, from.y + byY / 2});
    moveTo({from.x + byX, from.y + byY});
    EXPECT_TRUE(waitUntil([&] {
      const RECT now = program.rect();
      return EqualRect(&now, &expected);
    })) << "the clock did not follow";
    release();
    ASSERT_TRUE(waitUntil([&] { return !program.isHeldByMouse(); }));
  }
  void moveClock(POINT from, int byX, int byY) {
    RECT expected = program.rect();
    OffsetRect(&expected, byX, byY);
    drag(from, byX, byY, expected);
  }
  void growClock(int byX, int byY) {
    RECT expected = program.rect();
    expected.right += byX;
    expected.bottom += byY;
    drag(bottomRight(), byX, byY, expected);
  }
  bool isAt(int x, int y) {
    return waitUntil([&] { return program.rect().left == x && program.rect().top == y; });
  }
  bool hasSize(int width, int height) {
    return waitUntil([&] {
      const RECT rect = program.rect();
      return rect.right - rect.left == width && rect.bottom - rect.top == height;
    });
  }
  HWND toolbar() { return FindWindowW(kResizeClass, L"调整大小"); }
  void pressButton(int command) {
    const HWND button = GetDlgItem(toolbar(), command);
    ASSERT_NE(button, nullptr);
    RECT rect{};
    GetWindowRect(button, &rect);
    clickAt({(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
  }
  RECT workArea() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
  }

  Program program;
};

TEST_F(ClockOnScreenTest, TheFirstStartPlacesTheClockAtTheTopRightAndSavesThat) {
  ASSERT_TRUE(program.start());
  const RECT area = workArea();
  EXPECT_TRUE(isAt(area.right - scaled(183 + 30), area.top + scaled(30)));
  EXPECT_TRUE(hasSize(scaled(183), scaled(82)));
  EXPECT_EQ(program.settings().windowX, program.rect().left);
  EXPECT_EQ(program.settings().windowY, program.rect().top);
}

TEST_F(ClockOnScreenTest, TheWindowHasNoFrameNoTaskbarButtonAndStaysOnTop) {
  startAt(200, 150);
  EXPECT_EQ(GetWindowLongW(program.clock(), GWL_EXSTYLE) &
                (WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_LAYERED),
            WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_LAYERED);
  const LONG style = GetWindowLongW(program.clock(), GWL_STYLE);
  EXPECT_TRUE(style & WS_POPUP);
  EXPECT_FALSE(style & (WS_CAPTION | WS_THICKFRAME));
  EXPECT_TRUE(program.isVisible());
  EXPECT_TRUE(isAt(200, 150));
}

TEST_F(ClockOnScreenTest, ADragAnywhereMovesTheClockAndSavesItsPlace) {
  startAt(200, 150);
  moveClock(middle(), 240, 130);
  EXPECT_TRUE(isAt(440, 280));
  EXPECT_TRUE(waitUntil([&] { return program.settings().windowX == 440; }));
  EXPECT_EQ(program.settings().windowY, 280);
}

TEST_F(ClockOnScreenTest, OutsideResizeModeACornerMovesTheClockLikeAnyOtherPlace) {
  startAt(200, 150);
  moveClock(bottomRight(), 50, 60);
  EXPECT_TRUE(isAt(250, 210));
  EXPECT_TRUE(hasSize(scaled(183), scaled(82)));
}

TEST_F(ClockOnScreenTest, AClockSavedOffScreenIsCorrectedAndNotSavedUntilItIsMoved) {
  startAt(9000, 9000);
  const RECT area = workArea();
  EXPECT_TRUE(isAt(area.left + 30, area.top + 30));
  EXPECT_EQ(program.settings().windowX, 9000);
}

TEST_F(ClockOnScreenTest, AClockThatLiesPartlyOnScreenStays) {
  startAt(-50, 100);
  EXPECT_TRUE(isAt(-50, 100));
}

TEST_F(ClockOnScreenTest, ResizeModeShowsItsToolbarBelowTheClock) {
  startAt(200, 150);
  EXPECT_EQ(toolbar(), nullptr);
  program.command(kCommandToggleResizeMode);
  ASSERT_NE(toolbar(), nullptr);
  RECT bar{};
  GetWindowRect(toolbar(), &bar);
  EXPECT_EQ(bar.left, 200);
  EXPECT_EQ(bar.top, program.rect().bottom + scaled(6));
  EXPECT_EQ(bar.right - bar.left, scaled(222));
  EXPECT_EQ(bar.bottom - bar.top, scaled(40));
}

TEST_F(ClockOnScreenTest, ACornerDragResizesAndTheToolbarsButtonSaves) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  growClock(scaled(100), scaled(50));
  EXPECT_TRUE(hasSize(scaled(183) + scaled(100), scaled(82) + scaled(50)));
  EXPECT_TRUE(isAt(200, 150));
  EXPECT_EQ(program.settings().windowWidth, 183u) << "not before the mode is left";
  pressButton(kCommandToggleResizeMode);
  EXPECT_TRUE(waitUntil([&] { return program.settings().windowWidth != 183; }));
  EXPECT_NEAR(program.settings().windowWidth, 283, 1);
  EXPECT_NEAR(program.settings().windowHeight, 132, 1);
  EXPECT_TRUE(waitUntil([&] { return toolbar() == nullptr; }));
}

TEST_F(ClockOnScreenTest, ACornerLeftOfThePrimaryMonitorIsACornerToo) {
  startAt(-50, 100);
  program.command(kCommandToggleResizeMode);
  const POINT corner = topLeft();
  EXPECT_EQ(SendMessageW(program.clock(), WM_NCHITTEST, 0, MAKELPARAM(corner.x, corner.y)),
            HTTOPLEFT);
}

TEST_F(ClockOnScreenTest, ADragPastTheMinimumLeavesTheOppositeEdgesAlone) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  const RECT before = program.rect();
  const RECT smallest{before.right - scaled(120), before.bottom - scaled(50), before.right,
                      before.bottom};
  drag(topLeft(), scaled(500), scaled(300), smallest);
  EXPECT_TRUE(hasSize(scaled(120), scaled(50)));
  EXPECT_EQ(program.rect().right, before.right);
  EXPECT_EQ(program.rect().bottom, before.bottom);
}

TEST_F(ClockOnScreenTest, InResizeModeTheClockIsStillDraggedAndTheToolbarFollowsUnsaved) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  moveClock(middle(), 100, 80);
  EXPECT_TRUE(isAt(300, 230));
  EXPECT_TRUE(waitUntil([&] {
    RECT bar{};
    GetWindowRect(toolbar(), &bar);
    return bar.left == 300 && bar.top == program.rect().bottom + scaled(6);
  }));
  EXPECT_EQ(program.settings().windowX, 200);
}

TEST_F(ClockOnScreenTest, TheDefaultSizeComesBackByTheToolbar) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  growClock(150, 90);
  pressButton(kCommandDefaultSize);
  EXPECT_TRUE(hasSize(scaled(183), scaled(82)));
  EXPECT_NE(toolbar(), nullptr) << "the mode goes on";
}

TEST_F(ClockOnScreenTest, AnotherResolutionMovesTheClockToTheSuggestedPlaceAndKeepsItsUnits) {
  startAt(200, 150);
  sendDpiChanged(program.clock(), 192, {100, 120, 100 + 366, 120 + 164});
  EXPECT_TRUE(isAt(100, 120));
  EXPECT_TRUE(hasSize(366, 164));
  EXPECT_EQ(program.settings().windowWidth, 183u);
}

TEST_F(ClockOnScreenTest, TheToolbarTakesItsSizeFromTheClockAndNotFromItsOwnMonitor) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  RECT before{};
  GetWindowRect(toolbar(), &before);
  sendDpiChanged(toolbar(), 192, {0, 0, 2 * scaled(222), 2 * scaled(40)});
  RECT after{};
  GetWindowRect(toolbar(), &after);
  EXPECT_TRUE(EqualRect(&after, &before));
}

TEST_F(ClockOnScreenTest, ASecondQuickPressOnACornerDragsItToo) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  moveTo(bottomRight());
  PostMessageW(program.clock(), WM_NCLBUTTONDBLCLK, HTBOTTOMRIGHT, 0);
  ASSERT_TRUE(waitUntil([&] { return program.isHeldByMouse(); }));
  const POINT corner = bottomRight();
  moveTo({corner.x + scaled(40), corner.y + scaled(30)});
  EXPECT_TRUE(hasSize(scaled(183) + scaled(40), scaled(82) + scaled(30)));
}

TEST_F(ClockOnScreenTest, AResolutionThatChangesDuringACornerDragLetsItGoOnFromTheNewSize) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  const POINT corner = bottomRight();
  pressAt(corner);
  ASSERT_TRUE(waitUntil([&] { return program.isHeldByMouse(); }));
  sendDpiChanged(program.clock(), 192, {200, 150, 200 + scaled(400), 150 + scaled(200)});
  moveTo({corner.x + 10, corner.y + 5});
  EXPECT_TRUE(hasSize(scaled(400) + 10, scaled(200) + 5));
  release();
}

TEST_F(ClockOnScreenTest, TheLimitsAreTheSystemsTrackingLimitsToo) {
  startAt(200, 150);
  MINMAXINFO limits{};
  SendMessageW(program.clock(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_EQ(limits.ptMinTrackSize.x, scaled(120));
  EXPECT_EQ(limits.ptMinTrackSize.y, scaled(50));
  EXPECT_EQ(limits.ptMaxTrackSize.x, scaled(1200));
  EXPECT_EQ(limits.ptMaxTrackSize.y, scaled(600));
}

TEST_F(ClockOnScreenTest, AClockSavedAtTheEndOfTheNumbersIsCorrectedToo) {
  startAt(INT32_MAX, INT32_MAX);
  EXPECT_TRUE(isAt(30, 30));
  EXPECT_TRUE(hasSize(scaled(183), scaled(82)));
}

TEST_F(ClockOnScreenTest, TheUserHidesAndShowsTheClock) {
  startAt(200, 150);
  program.command(kCommandHideClock);
  EXPECT_FALSE(program.isVisible());
  program.command(kCommandToggleVisibility);
  EXPECT_TRUE(program.isVisible());
}

TEST_F(ClockOnScreenTest, ClosingTheWindowEndsTheProgramInOrderAndWritesNothing) {
  startAt(200, 150);
  const std::string before = program.settingsBytes();
  PostMessageW(program.clock(), WM_CLOSE, 0, 0);
  DWORD exitCode = 99;
  EXPECT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(exitCode, 0u);
  EXPECT_EQ(program.settingsBytes(), before);
}

TEST_F(ClockOnScreenTest, ExitingInResizeModeLosesTheNewSizeAndTakesTheToolbarAlong) {
  startAt(200, 150);
  program.command(kCommandToggleResizeMode);
  growClock(100, 50);
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  DWORD exitCode = 99;
  EXPECT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(program.settings().windowWidth, 183u);
  EXPECT_EQ(toolbar(), nullptr);
}

TEST_F(ClockOnScreenTest, OfTwoTestRootsTheLaterCounts) {
  const TemporaryFolder earlier(L"an earlier root");
  ASSERT_TRUE(program.start(L"\"--test-root=" + earlier.path() + L"\""));
  EXPECT_FALSE(program.settingsBytes().empty());
}

TEST_F(ClockOnScreenTest, ADamagedFileIsLeftUntouchedWhileTheClockRunsOnDefaults) {
  const std::string damaged = "MarluneNative2\n900 1 1 0\n300 10 18";
  program.prepareBytes(damaged);
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(program.waitForText(L"15:00"));
  const RECT before = program.rect();
  moveClock(middle(), 60, 60);
  EXPECT_TRUE(isAt(before.left + 60, before.top + 60)) << "it moves";
  program.command(kCommandToggleTimer);
  EXPECT_TRUE(program.isCounting());
  EXPECT_EQ(program.settingsBytes(), damaged) << "and is not saved";
}

TEST_F(ClockOnScreenTest, AFileThatAnotherProcessHoldsKeepsItsOldContentAndNoTemporaryStays) {
  startAt(200, 150);
  const std::string before = program.settingsBytes();
  // Like a virus scanner or a backup: others may read the file, but not replace it.
  const HANDLE held = CreateFileW(program.settingsPath().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  moveClock(middle(), 60, 60);
  EXPECT_TRUE(isAt(260, 210)) << "it stays where it was dropped";
  EXPECT_TRUE(program.standsStill());
  EXPECT_EQ(program.settingsBytes(), before);
  EXPECT_EQ(GetFileAttributesW((program.settingsPath() + L".tmp").c_str()),
            INVALID_FILE_ATTRIBUTES);
  CloseHandle(held);
  moveClock(middle(), 10, 10);
  EXPECT_TRUE(waitUntil([&] { return program.settings().windowX == 270; }))
      << "the next drag is saved again";
}

TEST_F(ClockOnScreenTest, TheKeysOfTheClockStartAndResetIt) {
  startAt(200, 150);
  PostMessageW(program.clock(), WM_KEYDOWN, VK_F2, 0);
  EXPECT_TRUE(program.isCounting());
  PostMessageW(program.clock(), WM_KEYDOWN, VK_F4, 0);
  EXPECT_TRUE(program.waitForText(L"15:00"));
}

}  // namespace
}  // namespace mrl
