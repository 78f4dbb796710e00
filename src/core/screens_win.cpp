#include "core/screens_win.h"

#include <windows.h>

#include "base/geometry_win.h"
#include "base/wide_win.h"

namespace mrl {

Rect ScreensWin::primaryWorkArea() {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &info);
  return rectFrom(info.rcWork);
}

int ScreensWin::systemDpi() { return static_cast<int>(GetDpiForSystem()); }

std::vector<Monitor> ScreensWin::monitors() {
  std::vector<Monitor> found;
  EnumDisplayMonitors(
      nullptr, nullptr,
      [](HMONITOR monitor, HDC, RECT* rect, LPARAM list) -> BOOL {
        MONITORINFOEXW info{};
        info.cbSize = sizeof info;
        GetMonitorInfoW(monitor, &info);
        reinterpret_cast<std::vector<Monitor>*>(list)->push_back(
            {u16From(info.szDevice), rectFrom(*rect)});
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace mrl
