#include "core/screens_win.h"

#include <windows.h>

#include "core/geometry_win.h"

namespace mrl {

Rect ScreensWin::primaryWorkArea() {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &info);
  return rectFrom(info.rcWork);
}

int ScreensWin::systemDpi() { return static_cast<int>(GetDpiForSystem()); }

}  // namespace mrl
