#include "settings_window/messages_win.h"

#include <commctrl.h>
#include <windowsx.h>

#include "base/geometry_win.h"
#include "base/window_classes_win.h"
#include "settings_window/commands.h"
#include "settings_window/control_ids.h"
#include "settings_window/layout.h"
#include "settings_window/preview.h"
#include "settings_window/subclass_win.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

ScrollStep stepFrom(WPARAM wParam) { return static_cast<ScrollStep>(LOWORD(wParam)); }

void limitSize(LPARAM lParam, const SizeLimits& limits) {
  auto* info = reinterpret_cast<MINMAXINFO*>(lParam);
  info->ptMinTrackSize = {limits.smallest.width, limits.smallest.height};
  info->ptMaxTrackSize = {limits.largest.width, limits.largest.height};
}

Point cursor() {
  POINT point{};
  GetCursorPos(&point);
  return pointFrom(point);
}

Rect screenRect(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return rectFrom(rect);
}

}  // namespace

std::optional<LRESULT> SettingsMessagesWin::handle(HWND window, UINT message, WPARAM wParam,
                                                   LPARAM lParam) {
  if (isWindowClass(window, kPreviewClass)) return onPreview(window, message, wParam, lParam);
  if (isWindowClass(window, kPreviewHostClass)) return onHost(window, message, wParam);
  if (isWindowClass(window, kQrClass)) {
    if (message != WM_PAINT) return {};
    view.painter().paintQrCode(window);
    return 0;
  }
  const bool frame = isWindowClass(window, kSettingsClass);
  if (!frame && !isWindowClass(window, kContentClass)) return {};
  if (const auto result = onShared(window, message, wParam, lParam)) return result;
  return frame ? onFrame(window, message, wParam, lParam) : onPane(window, message);
}

/// Messages that window and pane handle alike.
std::optional<LRESULT> SettingsMessagesWin::onShared(HWND window, UINT message, WPARAM wParam,
                                                     LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (onSettingsCommand(app, LOWORD(wParam), HIWORD(wParam))) return 0;
      return {};
    case WM_DRAWITEM:
      if (view.painter().drawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam))) return TRUE;
      return {};
    case WM_MEASUREITEM:
      if (view.painter().measureItem(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam))) return TRUE;
      return {};
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return reinterpret_cast<LRESULT>(view.painter().controlColours(
          message, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
    case WM_ERASEBKGND: return 1;
    case WM_VSCROLL: scrollPage(app, stepFrom(wParam), HIWORD(wParam)); return 0;
    case WM_MOUSEWHEEL: onWheel(wParam, lParam); return 0;
    case kPageWheel:
      if (window == view.control(kContentPane)) turnWheel(app, GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    default: return {};
  }
}

std::optional<LRESULT> SettingsMessagesWin::onFrame(HWND window, UINT message, WPARAM wParam,
                                                    LPARAM lParam) {
  switch (message) {
    case WM_CLOSE: closeSettingsWindow(app); return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) keepFocus(window);
      return {};
    case WM_SETFOCUS:
      if (giveFocusBack(window)) return 0;
      return {};
    case WM_SIZE: layoutPage(app); return 0;
    case WM_DPICHANGED:
      onSettingsDpiChanged(app, LOWORD(wParam), rectFrom(*reinterpret_cast<const RECT*>(lParam)));
      return 0;
    case WM_GETMINMAXINFO: {
      const int dpi = view.dpi();
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {
          toPixels(kSmallestSettingsUnits.width, dpi),
          toPixels(kSmallestSettingsUnits.height, dpi)};
      return 0;
    }
    case WM_NOTIFY: {
      const auto* note = reinterpret_cast<const NMHDR*>(lParam);
      if (note->idFrom != kTabs || note->code != static_cast<UINT>(TCN_SELCHANGE)) return {};
      selectPage(app, view.row(kTabs));
      return 0;
    }
    case WM_PAINT: view.painter().paintWindow(window); return 0;
    case WM_DESTROY: view.onDestroying(); return {};
    case WM_NCDESTROY: view.onDestroyed(); return {};
    default: return {};
  }
}

std::optional<LRESULT> SettingsMessagesWin::onPane(HWND window, UINT message) {
  if (message != WM_PAINT) return {};
  view.painter().paintPane(window);
  return 0;
}

std::optional<LRESULT> SettingsMessagesWin::onHost(HWND window, UINT message, WPARAM wParam) {
  switch (message) {
    case WM_SIZE: refreshPreview(app); return 0;
    case WM_HSCROLL: scrollPreview(app, PreviewBar::Horizontal, stepFrom(wParam)); return 0;
    case WM_VSCROLL: scrollPreview(app, PreviewBar::Vertical, stepFrom(wParam)); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: view.painter().paintPreviewHost(window); return 0;
    default: return {};
  }
}

std::optional<LRESULT> SettingsMessagesWin::onPreview(HWND window, UINT message, WPARAM wParam,
                                                      LPARAM lParam) {
  switch (message) {
    case WM_NCHITTEST: {
      const Point at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      const CornerHit hit = hitTest(at, screenRect(window), view.dpi());
      if (hit == CornerHit::None) return {};
      return static_cast<LRESULT>(hit);
    }
    case WM_GETMINMAXINFO: limitSize(lParam, clockSizeLimits(view.dpi())); return 0;
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK: {  // the second of two quick presses
      const CornerHit hit = cornerFrom(static_cast<int>(wParam));
      if (hit == CornerHit::None) return {};
      SetCapture(window);
      onPreviewCornerPress(app, hit, cursor());
      return 0;
    }
    case WM_MOUSEMOVE: onPreviewCornerDrag(app, cursor()); return 0;
    case WM_LBUTTONUP:
      if (GetCapture() == window) ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED: onPreviewDragEnded(app); return 0;
    case WM_SIZE:
      onPreviewSized(app, {LOWORD(lParam), HIWORD(lParam)});
      InvalidateRect(window, nullptr, FALSE);
      return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: painter.paintPreview(window, previewPicture(app)); return 0;
    case WM_DESTROY: painter.dropPreview(); return 0;
    default: return {};
  }
}

void SettingsMessagesWin::onWheel(WPARAM wParam, LPARAM lParam) {
  const HWND list = view.control(kFileList);
  const HWND under = WindowFromPoint({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
  const bool overList = IsWindowVisible(list) && (under == list || IsChild(list, under));
  // A list passes what it doesn't use, such as a turn with Ctrl, to its parent: don't send it back.
  if (overList && !listHasWheel) {
    listHasWheel = true;
    SendMessageW(list, WM_MOUSEWHEEL, wParam, lParam);
    listHasWheel = false;
  } else {
    SendMessageW(view.control(kContentPane), kPageWheel, wParam, lParam);
  }
}

void SettingsMessagesWin::keepFocus(HWND window) {
  const HWND focus = GetFocus();
  if (IsChild(window, focus)) focusBefore = focus;
}

/// As a dialog does when it is activated again.
bool SettingsMessagesWin::giveFocusBack(HWND window) const {
  if (!IsChild(window, focusBefore) || !IsWindowVisible(focusBefore)) return false;
  SetFocus(focusBefore);
  return true;
}

bool SettingsMessagesWin::takesFromLoop(MSG& message) {
  const HWND window = view.topWindow();
  if (window == nullptr) return false;
  const bool isOurs = message.hwnd == window || IsChild(window, message.hwnd);
  const HeldKeys held{GetKeyState(VK_CONTROL) < 0, GetKeyState(VK_MENU) < 0};
  if (isOurs && message.message == WM_KEYDOWN &&
      onSettingsKey(app, static_cast<int>(message.wParam), held)) {
    return true;
  }
  const HWND before = GetFocus();
  if (!IsDialogMessageW(window, &message)) return false;
  const HWND focus = GetFocus();  // null once Escape has closed the window
  if (message.message == WM_KEYDOWN && focus != nullptr && focus != before) {
    bringIntoSight(app, GetDlgCtrlID(focus));
  }
  return true;
}

}  // namespace mrl
