#include "settings_window/subclass_win.h"

#include <commctrl.h>
#include <windowsx.h>

#include "base/window_classes_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/presentation_page.h"

namespace mrl {
namespace {

constexpr UINT_PTR kControlSubclass = 71;
constexpr UINT_PTR kListSubclass = 72;
constexpr int kSwitchUnits = 140;  // at the right end of a row of the list

enum class Kind { Button, Edit, Combo, List };
Kind kindOf(HWND window) {
  if (isWindowClass(window, L"EDIT")) return Kind::Edit;
  if (isWindowClass(window, L"ComboBox")) return Kind::Combo;
  if (isWindowClass(window, L"LISTBOX")) return Kind::List;
  return Kind::Button;
}

const SettingsLook& lookOf(DWORD_PTR reference) {
  return *reinterpret_cast<const SettingsLook*>(reference);
}

void invalidate(HWND window) { InvalidateRect(window, nullptr, FALSE); }

void setHover(HWND window) {
  if (GetPropW(window, kHoverProperty) != nullptr) return;
  SetPropW(window, kHoverProperty, reinterpret_cast<HANDLE>(1));
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
  TrackMouseEvent(&track);
  invalidate(window);
}

bool changesTheLook(UINT message) {
  switch (message) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
    case BM_SETCHECK:
    case BM_SETSTATE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_SETTEXT:
    case WM_UPDATEUISTATE:
    case CB_SETCURSEL:
    case LB_SETCURSEL: return true;
    default: return false;
  }
}

LRESULT CALLBACK controlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                  UINT_PTR /*id*/, DWORD_PTR reference) {
  const SettingsLook& look = lookOf(reference);
  const Kind kind = kindOf(window);
  const bool painted = kind == Kind::Button || kind == Kind::Combo;
  switch (message) {
    case WM_NCDESTROY:
      RemovePropW(window, kHoverProperty);
      RemoveWindowSubclass(window, controlProcedure, kControlSubclass);
      return DefSubclassProc(window, message, wParam, lParam);
    case WM_ERASEBKGND:
      if (painted) return 1;
      break;
    case WM_PAINT:
      if (!painted) break;
      look.paintControl(window);
      return 0;
    case WM_MOUSEMOVE: setHover(window); break;
    case WM_MOUSELEAVE:
      RemovePropW(window, kHoverProperty);
      invalidate(window);
      break;
    case WM_NCPAINT:
      if (kind != Kind::Edit) break;
      if (GetWindowLongPtrW(window, GWL_STYLE) & WS_VSCROLL) {
        DefSubclassProc(window, message, wParam, lParam);  // the system paints the scroll bar
      }
      look.paintEditFrame(window);
      return 0;
    case WM_NCHITTEST: {
      const LRESULT hit = DefSubclassProc(window, message, wParam, lParam);
      // Clicks on a box's padding count as clicks on its text.
      return kind == Kind::Edit && (hit == HTNOWHERE || hit == HTBORDER) ? HTCLIENT : hit;
    }
    case WM_MOUSEWHEEL:
      if (kind != Kind::Combo || SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0)) break;
      SendMessageW(GetParent(window), message, wParam, lParam);
      return 0;
  }
  const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
  if (message == WM_NCCALCSIZE && kind == Kind::Edit) {
    look.narrowToFrame(*reinterpret_cast<RECT*>(lParam));
  }
  // A multi-line box would consume the Tab key, and Escape would close its parent, the pane.
  if (message == WM_GETDLGCODE && kind == Kind::Edit) return result & ~DLGC_WANTALLKEYS;
  if (changesTheLook(message)) {
    invalidate(window);
    if (kind == Kind::Edit) RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
  }
  return result;
}

/// The row whose switch is at the point, or -1.
int switchAt(HWND list, LPARAM point, const SettingsLook& look) {
  RECT client{};
  GetClientRect(list, &client);
  const POINT at{GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  if (!PtInRect(&client, at) || at.x < client.right - look.scale(kSwitchUnits)) return -1;
  const LRESULT found = SendMessageW(list, LB_ITEMFROMPOINT, 0, point);
  const int row = LOWORD(found);
  const bool outside = HIWORD(found) != 0 || row >= SendMessageW(list, LB_GETCOUNT, 0, 0);
  return outside ? -1 : row;
}

void toggleExclusion(HWND list) { SendMessageW(GetParent(list), WM_COMMAND, kToggleExclusion, 0); }

ListWheel wheelOver(HWND list, WPARAM wParam, LPARAM lParam) {
  const auto ask = [list](UINT message) {
    return static_cast<int>(SendMessageW(list, message, 0, 0));
  };
  RECT client{};
  GetClientRect(list, &client);
  POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  ScreenToClient(list, &at);
  return {.isInside = PtInRect(&client, at) != FALSE,
          .delta = GET_WHEEL_DELTA_WPARAM(wParam),
          .topRow = ask(LB_GETTOPINDEX),
          .rows = ask(LB_GETCOUNT),
          .height = static_cast<int>(client.bottom),
          .rowHeight = ask(LB_GETITEMHEIGHT)};
}

LRESULT CALLBACK listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam,
                               UINT_PTR /*id*/, DWORD_PTR reference) {
  const SettingsLook& look = lookOf(reference);
  switch (message) {
    case WM_NCDESTROY: RemoveWindowSubclass(list, listProcedure, kListSubclass); break;
    case WM_LBUTTONDOWN: {
      const int row = switchAt(list, lParam, look);
      if (row < 0) break;
      SetFocus(list);
      SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
      toggleExclusion(list);
      return 0;
    }
    case WM_LBUTTONDBLCLK:  // a double click on the switch toggles it once
      if (switchAt(list, lParam, look) >= 0) return 0;
      break;
    case WM_KEYDOWN:
      if (wParam != VK_SPACE || SendMessageW(list, LB_GETCURSEL, 0, 0) == LB_ERR) break;
      toggleExclusion(list);
      return 0;
    case WM_MOUSEWHEEL:
      if (!handsWheelOn(wheelOver(list, wParam, lParam))) break;
      SendMessageW(GetParent(list), kPageWheel, wParam, lParam);
      return 0;
    case WM_PAINT: {
      const LRESULT result = DefSubclassProc(list, message, wParam, lParam);
      if (SendMessageW(list, LB_GETCOUNT, 0, 0) == 0) look.paintEmptyList(list);
      return result;
    }
  }
  return DefSubclassProc(list, message, wParam, lParam);
}

}  // namespace

void adoptControl(HWND control, const SettingsLook& look) {
  SetWindowSubclass(control, controlProcedure, kControlSubclass,
                    reinterpret_cast<DWORD_PTR>(&look));
}

void adoptFileList(HWND list, const SettingsLook& look) {
  SetWindowSubclass(list, listProcedure, kListSubclass, reinterpret_cast<DWORD_PTR>(&look));
}

}  // namespace mrl
