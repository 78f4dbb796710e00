#include "core/tray_win.h"

#include <gtest/gtest.h>
#include <shellapi.h>

#include "base/replaced_import_win.h"
#include "base/window_classes_win.h"
#include "overlay/test_window_class_win.h"

namespace mrl {
namespace {

struct Filter {
  HWND window = nullptr;
  UINT message = 0;
  DWORD action = 0;
};
Filter letThrough;

BOOL WINAPI changeFilter(HWND window, UINT message, DWORD action, CHANGEFILTERSTRUCT* /*result*/) {
  letThrough = {window, message, action};
  return TRUE;
}

BOOL WINAPI acceptIcon(DWORD /*request*/, NOTIFYICONDATAW* /*data*/) { return TRUE; }

TEST(TrayWinTest, TheMessageOfANewShellReachesTheProgramThoughItHasMoreRights) {
  const ReplacedImport<decltype(changeFilter)> filter("ChangeWindowMessageFilterEx", changeFilter);
  const ReplacedImport<decltype(acceptIcon)> shell("Shell_NotifyIconW", acceptIcon);
  TestWindowClass windowClass(kTimerClass);
  ClockWindowWin clock(GetModuleHandleW(nullptr), &windowClass);
  ASSERT_TRUE(clock.create({0, 0}, {50, 50}));
  letThrough = {};
  EXPECT_TRUE(TrayWin(GetModuleHandleW(nullptr), clock).add());
  EXPECT_EQ(letThrough.window, clock.window());
  EXPECT_EQ(letThrough.message, RegisterWindowMessageW(L"TaskbarCreated"));
  EXPECT_EQ(letThrough.action, DWORD{MSGFLT_ALLOW});
}

}  // namespace
}  // namespace mrl
