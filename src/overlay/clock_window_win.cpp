// The clock's window: see clock_window_win.h.
#include "overlay/clock_window_win.h"

#include <utility>

#include "base/geometry_win.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"

namespace mrl {
namespace {

constexpr const wchar_t* kTitle = L"Marlune";
constexpr const wchar_t* kTextProperty = L"Marlune.Text";
constexpr UINT kStayInPlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

}  // namespace

ClockWindowWin::ClockWindowWin(HINSTANCE instance, void* creationParameter)
    : instance(instance), creationParameter(creationParameter) {}

ClockWindowWin::~ClockWindowWin() { destroy(); }

bool ClockWindowWin::create(Point topLeft, Size size) {
  hwnd = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_LAYERED, kTimerClass, kTitle,
                         WS_POPUP, topLeft.x, topLeft.y, size.width, size.height, nullptr, nullptr,
                         instance, creationParameter);
  return hwnd != nullptr;
}

void ClockWindowWin::destroy() {
  if (!hwnd) return;
  removeText();
  // Clear the handle only afterwards: messages sent during destruction may query this window.
  DestroyWindow(hwnd);
  hwnd = nullptr;
}

WindowHandle ClockWindowWin::handle() const { return handleFrom(hwnd); }

bool ClockWindowWin::isVisible() const { return IsWindowVisible(hwnd) != FALSE; }

void ClockWindowWin::show() {
  ShowWindow(hwnd, SW_SHOWNOACTIVATE);
  // Leaving and re-entering the always-on-top windows moves it to the top of them.
  SetWindowPos(hwnd, HWND_NOTOPMOST, 0, 0, 0, 0, kStayInPlace);
  SetWindowPos(hwnd, HWND_TOPMOST, 0, 0, 0, 0, kStayInPlace | SWP_SHOWWINDOW);
}

void ClockWindowWin::hide() { ShowWindow(hwnd, SW_HIDE); }

void ClockWindowWin::raise() { SetWindowPos(hwnd, HWND_TOPMOST, 0, 0, 0, 0, kStayInPlace); }

Rect ClockWindowWin::rect() const {
  RECT rect{};
  GetWindowRect(hwnd, &rect);
  return rectFrom(rect);
}

int ClockWindowWin::dpi() const {
  const UINT dpi = GetDpiForWindow(hwnd);
  return dpi != 0 ? static_cast<int>(dpi) : kUnitsPerInch;
}

Rect ClockWindowWin::nearestWorkArea() const {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (hwnd) GetMonitorInfoW(MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST), &info);
  return rectFrom(info.rcWork);
}

void ClockWindowWin::moveTo(Point topLeft) {
  SetWindowPos(hwnd, nullptr, topLeft.x, topLeft.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ClockWindowWin::resize(Size size) {
  SetWindowPos(hwnd, nullptr, 0, 0, size.width, size.height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ClockWindowWin::setRect(const Rect& rect) {
  SetWindowPos(hwnd, HWND_TOPMOST, rect.left, rect.top, rect.width(), rect.height(),
               SWP_NOACTIVATE);
}

void ClockWindowWin::invalidate() {
  // A null handle would invalidate every window of the desktop.
  if (hwnd) InvalidateRect(hwnd, nullptr, FALSE);
}

void ClockWindowWin::paintNow() { UpdateWindow(hwnd); }

void ClockWindowWin::dropRegion() {
  SetWindowRgn(hwnd, nullptr, TRUE);
  invalidate();
}

void ClockWindowWin::setText(const std::u16string& text) {
  if (!hwnd) return;
  removeText();
  const ATOM atom = GlobalAddAtomW(wideFrom(text).c_str());
  if (atom == 0) return;
  if (!SetPropW(hwnd, kTextProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(atom)))) {
    GlobalDeleteAtom(atom);
  }
}

void ClockWindowWin::removeText() {
  const HANDLE old = RemovePropW(hwnd, kTextProperty);
  if (old) GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(old)));
}

void ClockWindowWin::beginMove() {
  ReleaseCapture();
  SendMessageW(hwnd, WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

void ClockWindowWin::captureMouse() { SetCapture(hwnd); }

void ClockWindowWin::releaseMouse() { ReleaseCapture(); }

Point ClockWindowWin::cursor() const {
  POINT point{};
  GetCursorPos(&point);
  return pointFrom(point);
}

}  // namespace mrl
