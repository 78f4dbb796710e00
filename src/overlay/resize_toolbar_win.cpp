// The toolbar of resize mode: see resize_toolbar_win.h.
#include "overlay/resize_toolbar_win.h"

#include <utility>

#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "overlay/clock_geometry.h"

namespace mrl {

ResizeToolbarWin::ResizeToolbarWin(HINSTANCE instance, void* creationParameter,
                                   const ClockWindowWin& clock)
    : instance(instance), creationParameter(creationParameter), clock(clock) {}

ResizeToolbarWin::~ResizeToolbarWin() { remove(); }

void ResizeToolbarWin::show(Point topLeft, int dpi) {
  if (!window()) create(topLeft);
  place(topLeft, dpi);
  ShowWindow(window(), SW_SHOWNOACTIVATE);
}

void ResizeToolbarWin::create(Point topLeft) {
  hwnd = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kResizeClass,
                         wideFrom(kToolbarTitle).c_str(), WS_POPUP | WS_BORDER, topLeft.x,
                         topLeft.y, 0, 0, clock.window(), nullptr, instance, creationParameter);
  layoutDpi = 0;
  if (!hwnd) return;
  for (const ToolbarButton& row : kToolbarButtons) {
    CreateWindowExW(0, L"BUTTON", wideFrom(row.text).c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0,
                    0, 0, 0, hwnd, reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.command)),
                    instance, creationParameter);
  }
}

void ResizeToolbarWin::layOut(int dpi) {
  layoutDpi = dpi;
  const Size size = clockPixels(kToolbarUnits, dpi);
  SetWindowPos(hwnd, nullptr, 0, 0, size.width, size.height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Font newFont = makeFont(kToolbarFont, kToolbarFontUnits, FW_NORMAL, dpi);
  for (const ToolbarButton& row : kToolbarButtons) {
    const HWND button = GetDlgItem(hwnd, row.command);
    MoveWindow(button, toPixels(row.left, dpi), toPixels(row.top, dpi), toPixels(row.width, dpi),
               toPixels(row.height, dpi), TRUE);
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(newFont.get()), TRUE);
  }
  font = std::move(newFont);
}

void ResizeToolbarWin::place(Point topLeft, int dpi) {
  if (!window()) return;
  if (dpi != layoutDpi) layOut(dpi);
  SetWindowPos(hwnd, HWND_TOPMOST, topLeft.x, topLeft.y, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void ResizeToolbarWin::remove() {
  if (window()) DestroyWindow(hwnd);
  hwnd = nullptr;
  font.reset();
}

// Destroying the clock's window destroys the toolbar without notice, so the handle may be stale.
HWND ResizeToolbarWin::window() const { return IsWindow(hwnd) ? hwnd : nullptr; }

}  // namespace mrl
