#include "settings_window/settings_messages_win.h"

#include <commctrl.h>
#include <windowsx.h>

#include "core/geometry_win.h"
#include "core/window_classes_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/layout.h"
#include "settings_window/preview.h"
#include "settings_window/settings_commands.h"
#include "settings_window/settings_subclass_win.h"
#include "settings_window/settings_window.h"

namespace mrl {
namespace {

ScrollStep stepOf(WPARAM code) {
  switch (code) {
    case SB_LINEUP: return ScrollStep::LineBack;
    case SB_LINEDOWN: return ScrollStep::LineForward;
    case SB_PAGEUP: return ScrollStep::PageBack;
    case SB_PAGEDOWN: return ScrollStep::PageForward;
    case SB_THUMBTRACK: return ScrollStep::Track;
    default: return ScrollStep::None;
  }
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

/// What window and pane do alike.
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
    case WM_VSCROLL: onScroll(wParam); return 0;
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
    case WM_SIZE:
      if (!app.form.controlsSuppressed) layoutPage(app);
      return 0;
    case WM_DPICHANGED:
      view.adoptDpi();
      onSettingsDpiChanged(app);
      return 0;
    case WM_GETMINMAXINFO: {
      const int dpi = static_cast<int>(GetDpiForWindow(window));
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
    case WM_SIZE:
      if (!app.form.controlsSuppressed) refreshPreview(app);
      return 0;
    case WM_HSCROLL: scrollPreview(app, Bar::PreviewHorizontal, stepOf(LOWORD(wParam))); return 0;
    case WM_VSCROLL: scrollPreview(app, Bar::PreviewVertical, stepOf(LOWORD(wParam))); return 0;
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
    case WM_NCLBUTTONDOWN:
      if (wParam < HTTOPLEFT || wParam > HTBOTTOMRIGHT || wParam == HTBOTTOM) return {};
      drag = Drag{static_cast<CornerHit>(wParam), cursor(), view.rectOf(kPreview)};
      SetCapture(window);
      return 0;
    case WM_MOUSEMOVE: {
      if (!drag || GetCapture() != window) return 0;
      const Point now = cursor();
      const Point way{now.x - drag->cursor.x, now.y - drag->cursor.y};
      view.placePreview(dragCorner(drag->rect, drag->hit, way, view.dpi(), true));
      return 0;
    }
    case WM_LBUTTONUP:
      if (drag) ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED: drag.reset(); return 0;
    case WM_SIZE:
      if (drag) onPreviewDragged(app, {LOWORD(lParam), HIWORD(lParam)});
      InvalidateRect(window, nullptr, FALSE);
      return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: painter.paintPreview(window, previewPicture(app)); return 0;
    case WM_DESTROY: painter.dropPreview(); return 0;
    default: return {};
  }
}

void SettingsMessagesWin::onScroll(WPARAM wParam) {
  switch (LOWORD(wParam)) {
    case SB_LINEUP: return scrollPage(app, PageScroll::LineUp);
    case SB_LINEDOWN: return scrollPage(app, PageScroll::LineDown);
    case SB_PAGEUP: return scrollPage(app, PageScroll::PageUp);
    case SB_PAGEDOWN: return scrollPage(app, PageScroll::PageDown);
    case SB_THUMBPOSITION: return scrollTo(app, HIWORD(wParam));
    case SB_THUMBTRACK: return scrollPage(app, PageScroll::Track);
    case SB_TOP: return scrollPage(app, PageScroll::Top);
    case SB_BOTTOM: return scrollPage(app, PageScroll::Bottom);
    default: return;
  }
}

void SettingsMessagesWin::onWheel(WPARAM wParam, LPARAM lParam) {
  const HWND list = view.control(kFileList);
  const HWND under = WindowFromPoint({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
  const bool overList = IsWindowVisible(list) && (under == list || IsChild(list, under));
  if (overList) {
    SendMessageW(list, WM_MOUSEWHEEL, wParam, lParam);
  } else {
    SendMessageW(view.control(kContentPane), kPageWheel, wParam, lParam);
  }
}

void SettingsMessagesWin::keepFocus(HWND window) {
  const HWND focus = GetFocus();
  if (IsChild(window, focus)) focusBefore = focus;
}

/// As a dialog does when it is active again.
bool SettingsMessagesWin::giveFocusBack(HWND window) const {
  if (!IsChild(window, focusBefore) || !IsWindowVisible(focusBefore)) return false;
  SetFocus(focusBefore);
  return true;
}

bool SettingsMessagesWin::takesFromLoop(MSG& message) {
  const HWND window = view.topWindow();
  if (window == nullptr) return false;
  const bool isOurs = message.hwnd == window || IsChild(window, message.hwnd);
  if (isOurs && message.message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0 &&
      onSettingsKey(app, static_cast<int>(message.wParam))) {
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
