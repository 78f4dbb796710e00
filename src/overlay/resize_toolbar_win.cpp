// The toolbar of resize mode: see resize_toolbar_win.h.
#include "overlay/resize_toolbar_win.h"

#include "core/geometry_win.h"
#include "core/wide_win.h"
#include "core/window_classes_win.h"
#include "overlay/clock_geometry.h"

namespace mrl {
namespace {

HFONT createFont(int dpi) {
  return CreateFontW(-toPixels(kToolbarFontUnits, dpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                     DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                     DEFAULT_PITCH | FF_DONTCARE, wideFrom(kToolbarFont).c_str());
}

}  // namespace

ResizeToolbarWin::ResizeToolbarWin(HINSTANCE instance, void* creationParameter,
                                   const ClockWindowWin& clock)
    : instance(instance), creationParameter(creationParameter), clock(clock) {}

ResizeToolbarWin::~ResizeToolbarWin() { remove(); }

void ResizeToolbarWin::show(Point topLeft, int dpi) {
  if (!window()) create(dpi);
  place(topLeft);
  ShowWindow(window(), SW_SHOWNOACTIVATE);
}

void ResizeToolbarWin::create(int dpi) {
  const Size size = clockPixels(kToolbarUnits, dpi);
  hwnd = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kResizeClass,
                         wideFrom(kToolbarTitle).c_str(), WS_POPUP | WS_BORDER, 0, 0, size.width,
                         size.height, clock.window(), nullptr, instance, creationParameter);
  if (!hwnd) return;
  font.reset(createFont(dpi));
  for (const ToolbarButton& row : kToolbarButtons) {
    const HWND button = CreateWindowExW(
        0, L"BUTTON", wideFrom(row.text).c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP,
        toPixels(row.left, dpi), toPixels(row.top, dpi), toPixels(row.width, dpi),
        toPixels(row.height, dpi), hwnd, reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.command)),
        instance, creationParameter);
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
  }
}

void ResizeToolbarWin::place(Point topLeft) {
  SetWindowPos(window(), HWND_TOPMOST, topLeft.x, topLeft.y, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void ResizeToolbarWin::remove() {
  if (window()) DestroyWindow(hwnd);
  hwnd = nullptr;
  font.reset();
}

WindowHandle ResizeToolbarWin::handle() const { return handleFrom(window()); }

// The clock takes its toolbar along when it is destroyed, and tells nobody.
HWND ResizeToolbarWin::window() const { return IsWindow(hwnd) ? hwnd : nullptr; }

}  // namespace mrl
