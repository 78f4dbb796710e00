// The scroll bars of the real settings window, and its hidden tab control.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/command_ids.h"
#include "settings_window/layout.h"
#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsScrollTest : public SettingsHand {
 protected:
  Rect seenPane() const {
    RECT seen{};
    GetWindowRect(pane(), &seen);
    return {seen.left, seen.top, seen.right, seen.bottom};
  }
  /// Drags the thumb of a scroll bar that is at its start.
  void dragThumb(POINT thumb, POINT to) const {
    moveTo(thumb);
    pressAt(thumb);
    // The X server sometimes loses a press.
    if (!waitUntil([&] { return hasCapture(); }, 3000)) {
      release();
      pressAt(thumb);
    }
    ASSERT_TRUE(waitUntil([&] { return hasCapture(); }));
    moveTo(to);
  }
  /// Whether a window of the settings window's thread has the mouse.
  bool hasCapture() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window(), nullptr), &info) &&
           info.hwndCapture != nullptr;
  }
  /// Opens the page with the preview, with a clock larger than its host in both directions.
  void openLargePreview() {
    Settings settings = quiet();
    settings.windowWidth = 1200;
    settings.windowHeight = 600;
    ASSERT_NO_FATAL_FAILURE(open(settings));
    turnTo(1);
    ASSERT_EQ(clockAt(), (Point{0, 0}));
  }
  /// The preview's position in its host.
  Point clockAt() const { return {rect(kPreview).left, rect(kPreview).top}; }
  Size hostSize() const {
    RECT client{};
    GetClientRect(control(kPreviewHost), &client);
    return {client.right, client.bottom};
  }
  Point hostAfter(UINT message, WORD code) const {
    ask(control(kPreviewHost), message, MAKEWPARAM(code, 0));
    return clockAt();
  }
};

TEST_F(SettingsScrollTest, EachPartOfThePagesBarMovesThePageItsOwnWay) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  const PageLayout layout = layOut(clientSize(), dpi(), 0, 0);
  const int end = layout.extent - layout.paneHeight;
  const int line = scaled(56);
  const int most = std::min(layout.paneHeight * 3 / 4, end);
  for (const HWND target : {pane(), window()}) {
    const auto after = [&](WORD code, WORD position = 0) {
      ask(target, WM_VSCROLL, MAKEWPARAM(code, position));
      return scrollPosition();
    };
    EXPECT_EQ(after(SB_LINEDOWN), line);
    EXPECT_EQ(after(SB_LINEDOWN), 2 * line);
    EXPECT_EQ(after(SB_LINEUP), line);
    EXPECT_EQ(after(SB_TOP), 0);
    EXPECT_EQ(after(SB_PAGEDOWN), most);
    EXPECT_EQ(after(SB_PAGEUP), 0);
    EXPECT_EQ(after(SB_THUMBPOSITION, 123), 123);
    EXPECT_EQ(after(SB_ENDSCROLL, 7), 123);
    EXPECT_EQ(after(SB_BOTTOM), end);
    EXPECT_EQ(after(SB_TOP), 0);
  }
}

TEST_F(SettingsScrollTest, ThePageFollowsTheThumbOfItsBarWhileItIsHeld) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  const Rect seen = seenPane();
  const int bar = GetSystemMetrics(SM_CXVSCROLL);
  const POINT thumb{seen.right - bar / 2, seen.top + GetSystemMetrics(SM_CYVSCROLL) + 10};
  ASSERT_NO_FATAL_FAILURE(dragThumb(thumb, {thumb.x, thumb.y + 60}));
  EXPECT_TRUE(waitUntil([&] { return scrollPosition() > scaled(56); })) << scrollPosition();
  release();
}

TEST_F(SettingsScrollTest, ThePreviewsBarsMoveItEachAlongItsOwnWay) {
  ASSERT_NO_FATAL_FAILURE(openLargePreview());
  const int line = scaled(24);
  const auto [width, height] = hostSize();
  EXPECT_EQ(hostAfter(WM_HSCROLL, SB_LINERIGHT), (Point{-line, 0}));
  EXPECT_EQ(hostAfter(WM_VSCROLL, SB_LINEDOWN), (Point{-line, -line}));
  EXPECT_EQ(hostAfter(WM_VSCROLL, SB_LINEDOWN), (Point{-line, -2 * line}));
  EXPECT_EQ(hostAfter(WM_VSCROLL, SB_LINEUP), (Point{-line, -line}));
  EXPECT_EQ(hostAfter(WM_HSCROLL, SB_LINELEFT), (Point{0, -line}));
  EXPECT_EQ(hostAfter(WM_VSCROLL, SB_PAGEDOWN), (Point{0, -line - height}));
  EXPECT_EQ(hostAfter(WM_VSCROLL, SB_PAGEUP), (Point{0, -line}));
  const int most = scaled(1200) - width;
  EXPECT_EQ(hostAfter(WM_HSCROLL, SB_PAGERIGHT), (Point{-std::min(width, most), -line}));
  EXPECT_EQ(hostAfter(WM_HSCROLL, SB_PAGELEFT), (Point{0, -line}));
  EXPECT_EQ(hostAfter(WM_HSCROLL, SB_ENDSCROLL), (Point{0, -line}));
}

TEST_F(SettingsScrollTest, ThePreviewFollowsTheThumbOfItsBarWhileItIsHeld) {
  ASSERT_NO_FATAL_FAILURE(openLargePreview());
  RECT host{};
  GetWindowRect(control(kPreviewHost), &host);
  const POINT thumb{host.left + GetSystemMetrics(SM_CXHSCROLL) + 10,
                    host.bottom - GetSystemMetrics(SM_CYHSCROLL) / 2};
  ASSERT_NO_FATAL_FAILURE(dragThumb(thumb, {thumb.x + 60, thumb.y}));
  EXPECT_TRUE(waitUntil([&] { return clockAt().x < -scaled(24); })) << clockAt().x;
  EXPECT_EQ(clockAt().y, 0);
  release();
}

TEST_F(SettingsScrollTest, TheHiddenTabsTurnThePageToo) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  constexpr UINT kTakeTab = 0x1330;  // TCM_SETCURFOCUS; reports the change as a click does
  ask(control(kTabs), kTakeTab, 3);
  EXPECT_TRUE(waitUntil([&] { return page() == 3 && showsOnly(3); }));
}

TEST_F(SettingsScrollTest, AWindowOpenedAgainShowsThePreviewAgain) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  moveTo({0, 0});
  const auto preview = [&] {
    RECT place{};
    GetWindowRect(control(kPreview), &place);
    return settledPictureOf(place);
  };
  ASSERT_TRUE(openPage(1));
  moveTo({0, 0});
  const Picture first = preview();
  ASSERT_NE(std::ranges::count(first.pixels, first.pixels.front()),
            static_cast<std::ptrdiff_t>(first.pixels.size()));
  ask(window(), WM_CLOSE);
  ASSERT_EQ(settingsWindows(), 0);
  program.command(kCommandOpenSettings);
  ASSERT_TRUE(openPage(1));
  moveTo({0, 0});
  EXPECT_TRUE(waitUntil([&] { return preview() == first; }));
}

}  // namespace
}  // namespace mrl
