// The menu as a user sees it: on the clock and on its tray icon.
#include <gtest/gtest.h>

#include "base/command_ids.h"
#include "core/tray_win.h"
#include "windows/menu_window.h"
#include "windows/picture.h"
#include "windows/program.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

class MenuTest : public testing::Test {
 protected:
  void SetUp() override {
    Settings settings;
    settings.windowX = 200;
    settings.windowY = 150;
    program.prepare(settings);
    ASSERT_TRUE(program.start());
  }
  POINT middle() const {
    const RECT rect = program.rect();
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  bool opens(DWORD limitMs = 10'000) {
    return waitUntil([&] { return menuOf(program.clock()) != nullptr; }, limitMs);
  }
  bool closes() {
    return waitUntil([&] { return menuOf(program.clock()) == nullptr; });
  }
  /// Retries: until the clock is painted, the X server lets clicks fall through it.
  [[nodiscard]] bool opensByMouse() {
    for (int tries = 0; tries < 5; ++tries) {
      rightClickAt(middle());
      if (opens(4000)) return true;
    }
    return false;
  }
  POINT lastItem() const {
    const RECT rect = menuRect(program.clock());
    return {(rect.left + rect.right) / 2, rect.bottom - scaled(15)};
  }
  /// The item above the last one and a separator.
  POINT manualModeItem() const { return {lastItem().x, lastItem().y - scaled(40)}; }

  /// Number of pixel rows that contain something besides background, in the column of the texts.
  static int rowsWithInk(const Picture& menu) {
    const int left = scaled(30);
    int rows = 0;
    for (int y = 0; y < menu.size.height; ++y) {
      bool hasInk = false;
      for (int x = left; x < left + scaled(60); ++x) hasInk |= menu.at(x, y) != menu.at(left, y);
      rows += hasInk ? 1 : 0;
    }
    return rows;
  }

  Program program;
};

TEST_F(MenuTest, ARightClickOnTheClockOpensItThere) {
  ASSERT_TRUE(opensByMouse());
  const RECT rect = menuRect(program.clock());
  EXPECT_EQ(rect.left, middle().x);
  EXPECT_EQ(rect.top, middle().y);
  EXPECT_GT(rect.bottom - rect.top, scaled(7 * 30));
  EXPECT_LT(rect.bottom - rect.top, scaled(7 * 30 + 60)) << "seven items and three separators";
}

TEST_F(MenuTest, TheFirstItemStartsTheTimer) {
  ASSERT_TRUE(opensByMouse());
  pressKey(VK_DOWN);
  pressKey(VK_RETURN);
  EXPECT_TRUE(program.isCounting());
}

TEST_F(MenuTest, TheClockCountsWhileItIsOpen) {
  program.command(kCommandToggleTimer);
  ASSERT_TRUE(opensByMouse());
  EXPECT_TRUE(program.isCounting());
}

TEST_F(MenuTest, TheMouseChoosesTheOtherMode) {
  ASSERT_TRUE(opensByMouse());
  clickAt(manualModeItem());
  EXPECT_TRUE(waitUntil([&] { return !program.settings().autoMode; }));
}

TEST_F(MenuTest, TheRightButtonChoosesAsWell) {
  ASSERT_TRUE(opensByMouse());
  rightClickAt(manualModeItem());
  EXPECT_TRUE(waitUntil([&] { return !program.settings().autoMode; }));
}

TEST_F(MenuTest, ItsItemsCanBeRead) {
  ASSERT_TRUE(opensByMouse());
  const RECT rect = menuRect(program.clock());
  // Without the texts only the separators would leave ink.
  EXPECT_TRUE(waitUntil([&] { return rowsWithInk(pictureOf(rect)) >= 7 * scaled(8); }));
}

TEST_F(MenuTest, ItTakesTheForegroundWithoutWhichAClickElsewhereWouldNotCloseIt) {
  // Invisible: the X server would report its focus late, which closes a menu that is already open.
  const HWND other = CreateWindowExW(0, L"STATIC", L"in front", WS_POPUP, 600, 400, 80, 60, nullptr,
                                     nullptr, nullptr, nullptr);
  SetForegroundWindow(other);
  ASSERT_EQ(GetForegroundWindow(), other);
  PostMessageW(program.clock(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(program.clock()), -1);
  ASSERT_TRUE(opens());
  EXPECT_TRUE(waitUntil([&] { return GetForegroundWindow() == program.clock(); }));
  DestroyWindow(other);
}

TEST_F(MenuTest, TheLastItemEndsTheProgram) {
  ASSERT_TRUE(opensByMouse());
  clickAt(lastItem());
  DWORD exitCode = 99;
  ASSERT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(exitCode, 0u);
}

TEST_F(MenuTest, EscapeClosesItAndNothingRuns) {
  ASSERT_TRUE(opensByMouse());
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.text(), L"15:00");
  EXPECT_TRUE(program.settings().autoMode);
}

TEST_F(MenuTest, TheKeyboardOpensItAtTheCursor) {
  moveTo({320, 260});
  PostMessageW(program.clock(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(program.clock()), -1);
  ASSERT_TRUE(opens());
  EXPECT_EQ(menuRect(program.clock()).left, 320);
  EXPECT_EQ(menuRect(program.clock()).top, 260);
}

TEST_F(MenuTest, ARightClickOnTheTrayIconOpensItAtTheCursor) {
  moveTo({330, 270});
  PostMessageW(program.clock(), kTrayNotify, 1, WM_RBUTTONUP);
  ASSERT_TRUE(opens());
  EXPECT_EQ(menuRect(program.clock()).left, 330);
  EXPECT_EQ(menuRect(program.clock()).top, 270);
  pressKey(VK_DOWN);
  pressKey(VK_RETURN);
  EXPECT_TRUE(program.isCounting());
}

}  // namespace
}  // namespace mrl
