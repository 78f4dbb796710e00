#include "core/screens_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "base/replaced_import_win.h"

namespace mrl {
namespace {

/// A monitor whose taskbar is at the top.
BOOL WINAPI withTaskBar(HMONITOR /*monitor*/, MONITORINFO* info) {
  info->rcMonitor = {0, 0, 1000, 800};
  info->rcWork = {0, 50, 1000, 800};
  return TRUE;
}

TEST(ScreensWinTest, TheWorkAreaIsThePrimaryMonitorLessItsTaskBar) {
  const ReplacedImport<decltype(withTaskBar)> system("GetMonitorInfoW", withTaskBar);
  EXPECT_EQ(ScreensWin().primaryWorkArea(), (Rect{0, 50, 1000, 800}));
}

TEST(ScreensWinTest, AMonitorIsListedWithItsTaskBar) {
  const ReplacedImport<decltype(withTaskBar)> system("GetMonitorInfoW", withTaskBar);
  const std::vector<Monitor> monitors = ScreensWin().monitors();
  ASSERT_FALSE(monitors.empty());
  EXPECT_EQ(monitors.front().rect.top, 0);
}

TEST(ScreensWinTest, EveryMonitorHasANameOfItsOwnAndItsPlace) {
  const std::vector<Monitor> monitors = ScreensWin().monitors();
  ASSERT_EQ(static_cast<int>(monitors.size()), GetSystemMetrics(SM_CMONITORS));
  for (const Monitor& each : monitors) {
    EXPECT_FALSE(each.name.empty());
    for (const Monitor& other : monitors) {
      EXPECT_EQ(each.name == other.name, &each == &other);
      EXPECT_EQ(each.rect == other.rect, &each == &other);
    }
  }
}

}  // namespace
}  // namespace mrl
