// The clock and its preview painted on real windows, with pixels read back from the screen.
#include <gtest/gtest.h>

#include "base/replaced_import_win.h"
#include "overlay/clock_geometry.h"
#include "overlay/clock_painter_win.h"
#include "overlay/clock_window_win.h"
#include "overlay/test_window_class_win.h"

namespace mrl {
namespace {

/// The colour now on the screen.
COLORREF screenPixel(int x, int y) {
  GdiFlush();
  const HDC screen = GetDC(nullptr);
  const COLORREF colour = GetPixel(screen, x, y);
  ReleaseDC(nullptr, screen);
  return colour;
}

void pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

/// Waits up to 5 s for the pixel: the desktop composes asynchronously.
bool comesToShow(int x, int y, COLORREF wanted) {
  const ULONGLONG limitMs = GetTickCount64() + 5000;
  while (GetTickCount64() < limitMs) {
    pump();
    if (screenPixel(x, y) == wanted) return true;
    Sleep(10);
  }
  return false;
}

class ClockPaintTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(painter.createFactories());
    settings.opacity = 100;
    settings.shape = 0;
  }
  void paint(HWND window) {
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
  }

  Settings settings;
  ClockPicture picture{.settings = settings, .text = u"15:00"};
  ClockPainterWin painter;
};

class LayeredClockTest : public ClockPaintTest {
 protected:
  void SetUp() override {
    ClockPaintTest::SetUp();
    windowClass.onPaint = [this](HWND window) {
      ++paints;
      painter.paintClock(window, picture);
    };
    ASSERT_TRUE(clock.create({200, 200}, {183, 82}));
    clock.show();
  }

  int paints = 0;
  TestWindowClass windowClass{L"Marlune.Native.Timer"};
  ClockWindowWin clock{GetModuleHandleW(nullptr), &windowClass};
};

TEST_F(LayeredClockTest, ThePictureComesToTheScreen) {
  paint(clock.window());
  EXPECT_TRUE(comesToShow(203, 203, RGB(0, 0x80, 0xFF)));
  EXPECT_TRUE(comesToShow(380, 279, RGB(0, 0x80, 0xFF)));
}

TEST_F(LayeredClockTest, ANewPictureReplacesTheOld) {
  paint(clock.window());
  ASSERT_TRUE(comesToShow(203, 203, RGB(0, 0x80, 0xFF)));
  picture.blinkOn = true;
  paint(clock.window());
  EXPECT_TRUE(comesToShow(203, 203, RGB(0xC0, 0x39, 0x2B)));
}

TEST_F(LayeredClockTest, APaintAnswersTheSystemsRequest) {
  pump();
  const int before = paints;
  paint(clock.window());
  EXPECT_EQ(paints, before + 1);
  EXPECT_FALSE(GetUpdateRect(clock.window(), nullptr, FALSE));
}

TEST_F(LayeredClockTest, APaintLeavesTheWindowWhereItIs) {
  clock.moveTo({240, 260});
  paint(clock.window());
  EXPECT_EQ(clock.rect(), (Rect{240, 260, 423, 342}));
}

TEST_F(LayeredClockTest, ThePictureFollowsTheSizeOfTheWindow) {
  paint(clock.window());
  clock.resize({300, 200});
  paint(clock.window());
  EXPECT_EQ(painter.bitmap().size(), (Size{300, 200}));
  EXPECT_TRUE(comesToShow(497, 397, RGB(0, 0x80, 0xFF)));
}

TEST_F(LayeredClockTest, AnEmptyWindowIsNotPainted) {
  clock.resize({0, 0});
  paint(clock.window());
  EXPECT_EQ(painter.bitmap().size(), Size{});
  EXPECT_FALSE(GetUpdateRect(clock.window(), nullptr, FALSE));
}

class PreviewPaintTest : public ClockPaintTest {
 protected:
  void SetUp() override {
    ClockPaintTest::SetUp();
    picture.isPreview = true;
    windowClass.onPaint = [this](HWND window) { painter.paintPreview(window, picture); };
    windowClass.onDestroy = [this](HWND) { painter.dropPreview(); };
    makeWindow();
  }
  void TearDown() override { DestroyWindow(window); }
  void makeWindow() {
    window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"Marlune.Native.Preview", L"",
                             WS_POPUP, 200, 200, 183, 82, nullptr, nullptr,
                             GetModuleHandleW(nullptr), &windowClass);
    ASSERT_TRUE(window);
    ShowWindow(window, SW_SHOWNOACTIVATE);
  }

  TestWindowClass windowClass{L"Marlune.Native.Preview"};
  HWND window = nullptr;
};

TEST_F(PreviewPaintTest, ThePreviewComesToTheScreenWithItsHandles) {
  paint(window);
  EXPECT_TRUE(comesToShow(212, 203, RGB(0, 0x80, 0xFF)));
  EXPECT_TRUE(comesToShow(203, 203, RGB(0xFF, 0xFF, 0xFF)));
}

TEST_F(PreviewPaintTest, BesideTheShapeItsLightGroundShows) {
  settings.shape = 2;
  paint(window);
  EXPECT_TRUE(comesToShow(212, 203, RGB(0xEE, 0xF3, 0xF9)));
}

TEST_F(PreviewPaintTest, ATextOnlyPreviewHasADarkGround) {
  settings.transparent = true;
  settings.shape = 2;
  paint(window);
  EXPECT_TRUE(comesToShow(212, 203, RGB(0x27, 0x33, 0x46)));
}

UINT WINAPI fineMonitor(HWND /*window*/) { return 144; }

TEST_F(PreviewPaintTest, ItsHandlesGrowWithTheResolutionOfItsMonitor) {
  const ReplacedImport<decltype(fineMonitor)> system("GetDpiForWindow", fineMonitor);
  paint(window);
  EXPECT_TRUE(comesToShow(210, 210, RGB(0xFF, 0xFF, 0xFF)));
}

TEST_F(PreviewPaintTest, ItFollowsTheSizeOfTheWindow) {
  paint(window);
  SetWindowPos(window, nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  paint(window);
  // A stretched picture would have a larger handle here.
  EXPECT_TRUE(comesToShow(490, 385, RGB(0, 0x80, 0xFF)));
  EXPECT_TRUE(comesToShow(494, 394, RGB(0xFF, 0xFF, 0xFF)));
}

TEST_F(PreviewPaintTest, ANewPreviewWindowIsPaintedAfterTheOldOneWent) {
  paint(window);
  DestroyWindow(window);
  makeWindow();
  paint(window);
  EXPECT_TRUE(comesToShow(212, 203, RGB(0, 0x80, 0xFF)));
}

}  // namespace
}  // namespace mrl
