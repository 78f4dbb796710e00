#include "core/black_screen_win.h"

#include <algorithm>

#include "core/geometry_win.h"
#include "core/window_classes_win.h"

namespace mrl {
namespace {

constexpr UINT kRaiseOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

std::vector<RECT> monitorRects() {
  std::vector<RECT> rects;
  EnumDisplayMonitors(
      nullptr, nullptr,
      [](HMONITOR, HDC, RECT* rect, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<RECT>*>(list)->push_back(*rect);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&rects));
  return rects;
}

}  // namespace

BlackScreenWin::BlackScreenWin(HINSTANCE programInstance, void* parameter)
    : instance(programInstance), creationParameter(parameter) {}

BlackScreenWin::~BlackScreenWin() { uncover(); }

void BlackScreenWin::cover() {
  for (const RECT& rect : monitorRects()) {
    const HWND window =
        CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kBlackClass, L"Marlune 黑屏", WS_POPUP,
                        rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                        nullptr, nullptr, instance, creationParameter);
    if (window == nullptr) continue;
    windows.push_back(window);
    ShowWindow(window, SW_SHOW);
  }
  if (!windows.empty()) SetForegroundWindow(windows.front());
}

void BlackScreenWin::uncover() {
  for (const HWND window : windows) DestroyWindow(window);
  windows.clear();
}

bool BlackScreenWin::isCovering() { return !windows.empty(); }

bool BlackScreenWin::contains(WindowHandle window) const {
  return std::find(windows.begin(), windows.end(), windowFrom(window)) != windows.end();
}

void BlackScreenWin::raise() {
  for (const HWND window : windows) {
    if (IsWindow(window)) SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kRaiseOnly);
  }
}

}  // namespace mrl
