#include "core/black_screen_win.h"

#include <algorithm>

#include "base/geometry_win.h"
#include "base/window_classes_win.h"

namespace mrl {
namespace {

constexpr UINT kRaiseOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

}  // namespace

BlackScreenWin::BlackScreenWin(HINSTANCE programInstance, void* parameter)
    : instance(programInstance), creationParameter(parameter) {}

BlackScreenWin::~BlackScreenWin() { uncover(); }

void BlackScreenWin::cover(const std::vector<Monitor>& monitors) {
  for (const Monitor& monitor : monitors) {
    const Rect& rect = monitor.rect;
    const HWND window = CreateWindowExW(
        WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kBlackClass, L"Marlune 黑屏", WS_POPUP, rect.left,
        rect.top, rect.width(), rect.height(), nullptr, nullptr, instance, creationParameter);
    if (window == nullptr) continue;
    windows.push_back({monitor.name, window});
    ShowWindow(window, SW_SHOW);
  }
  if (!windows.empty()) SetForegroundWindow(windows.front().window);
}

void BlackScreenWin::follow(const Monitor& monitor) {
  const Rect& rect = monitor.rect;
  for (const Covered& each : windows) {
    if (each.monitor != monitor.name) continue;
    SetWindowPos(each.window, nullptr, rect.left, rect.top, rect.width(), rect.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

void BlackScreenWin::uncover() {
  for (const Covered& each : windows) DestroyWindow(each.window);
  windows.clear();
}

bool BlackScreenWin::isCovering() { return !windows.empty(); }

bool BlackScreenWin::contains(WindowHandle window) const {
  return std::ranges::find(windows, windowFrom(window), &Covered::window) != windows.end();
}

void BlackScreenWin::raise() {
  for (const Covered& each : windows) {
    if (IsWindow(each.window)) SetWindowPos(each.window, HWND_TOPMOST, 0, 0, 0, 0, kRaiseOnly);
  }
}

}  // namespace mrl
