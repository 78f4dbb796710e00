// Creates the settings window and its controls: see view_win.h.
#include <windows.h>
// Must come after <windows.h>.
#include <commctrl.h>
#include <dwmapi.h>
#include <uxtheme.h>

#include "base/geometry_win.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "overlay/clock_geometry.h"
#include "settings_window/control_ids.h"
#include "settings_window/shapes_win.h"
#include "settings_window/spoken_names_win.h"
#include "settings_window/subclass_win.h"
#include "settings_window/view_win.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr int kUnplaced = 10;           // placeholder; the layout sets every control's size
constexpr DWORD kCornerAttribute = 33;  // DWM's corner preference; fails on older systems
constexpr DWORD kRoundCorners = 2;

struct SystemControl {
  const wchar_t* className;
  DWORD style = 0;
};

SystemControl systemControl(const Control& row) {
  constexpr DWORD kEdit = ES_AUTOHSCROLL;
  switch (row.kind) {
    case ControlKind::Tabs: return {WC_TABCONTROLW};
    case ControlKind::Section:
    case ControlKind::Button: return {L"BUTTON", BS_PUSHBUTTON};
    case ControlKind::Check: return {L"BUTTON", BS_AUTOCHECKBOX};
    case ControlKind::Radio: return {L"BUTTON", BS_AUTORADIOBUTTON};
    case ControlKind::Title:
    case ControlKind::Paragraph: return {L"STATIC"};
    // Vertically centred, because it is beside a box or a switch.
    case ControlKind::Caption: return {L"STATIC", SS_CENTERIMAGE};
    case ControlKind::TimerLine: return {L"STATIC", SS_ENDELLIPSIS | SS_CENTERIMAGE};
    case ControlKind::StatusLine: return {L"STATIC", SS_OWNERDRAW};
    case ControlKind::NumberBox: return {L"EDIT", kEdit | ES_NUMBER};
    case ControlKind::TextBox: return {L"EDIT", kEdit};
    case ControlKind::AddressBox: return {L"EDIT", kEdit | ES_READONLY | ES_MULTILINE | WS_VSCROLL};
    case ControlKind::Combo:
      return {L"ComboBox", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL};
    case ControlKind::List:
      return {L"LISTBOX", LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOTIFY | WS_VSCROLL};
    case ControlKind::PreviewHost:
      return {kPreviewHostClass, WS_HSCROLL | WS_VSCROLL | WS_CLIPCHILDREN};
    case ControlKind::Preview: return {kPreviewClass};
    case ControlKind::QrCode: return {kQrClass};
  }
  return {};
}

void fillRows(HWND made, const Control& row) {
  int index = 0;
  for (const char16_t* const text : row.rows) {
    std::wstring wide = wideFrom(text);
    if (row.kind == ControlKind::Tabs) {
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = wide.data();
      SendMessageW(made, TCM_INSERTITEMW, static_cast<WPARAM>(index++),
                   reinterpret_cast<LPARAM>(&item));
    } else {
      SendMessageW(made, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    }
  }
}

void setIcons(HWND window, const SettingsLook& look) {
  const auto setIcon = [&](WPARAM which, int units) {
    SendMessageW(window, WM_SETICON, which,
                 reinterpret_cast<LPARAM>(programIcon(look.scale(units))));
  };
  setIcon(ICON_BIG, 32);
  setIcon(ICON_SMALL, 16);
}

/// Removes an edit box's own frame; ours is painted instead.
void stripEdit(HWND edit) {
  SetWindowTheme(edit, L"", L"");
  SetWindowLongPtrW(edit, GWL_STYLE, GetWindowLongPtrW(edit, GWL_STYLE) & ~LONG_PTR{WS_BORDER});
  SetWindowLongPtrW(edit, GWL_EXSTYLE,
                    GetWindowLongPtrW(edit, GWL_EXSTYLE) & ~LONG_PTR{WS_EX_CLIENTEDGE});
}

/// REQUIRES: the font is set; setting it also sets margins, which this clears.
void fitFrame(HWND edit) {
  SendMessageW(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
  SetWindowPos(edit, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

}  // namespace

bool SettingsViewWin::create(const Rect& rect) {
  window = CreateWindowExW(WS_EX_CONTROLPARENT, kSettingsClass, wideFrom(kSettingsTitle).c_str(),
                           WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, rect.left, rect.top, rect.width(),
                           rect.height(), nullptr, nullptr, instance, creationParameter);
  if (window == nullptr) return false;
  const HWND pane =
      CreateWindowExW(WS_EX_COMPOSITED | WS_EX_CONTROLPARENT, kContentClass, L"",
                      WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_VSCROLL, 0, 0, kUnplaced,
                      kUnplaced, window, nullptr, instance, creationParameter);
  controls[kContentPane] = pane;
  windowDpi = static_cast<int>(GetDpiForWindow(window));
  look.prepare(windowDpi);
  DwmSetWindowAttribute(window, kCornerAttribute, &kRoundCorners, sizeof kRoundCorners);
  setIcons(window, look);
  bool complete = pane != nullptr;
  for (const Control& row : allControls()) complete = complete && createControl(row);
  if (complete) {
    giveSpokenNames(controls);
  } else {
    destroy();
  }
  return complete;
}

bool SettingsViewWin::createControl(const Control& row) {
  const SystemControl kind = systemControl(row);
  DWORD style = WS_CHILD | kind.style;  // the layout shows those of the page
  if (isInteractive(row.kind)) style |= WS_TABSTOP;
  if (row.startsGroup) style |= WS_GROUP;
  HWND parent = isOnPane(row) ? control(kContentPane) : window;
  Size size{kUnplaced, kUnplaced};
  if (row.kind == ControlKind::Preview) {
    parent = control(kPreviewHost);
    size = kDefaultClockUnits;
  }
  const HWND made = CreateWindowExW(
      0, kind.className, wideFrom(row.text).c_str(), style, 0, 0, size.width, size.height, parent,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.id)), instance, creationParameter);
  if (made == nullptr) return false;
  controls[row.id] = made;
  fillRows(made, row);
  adorn(made, row);
  return true;
}

void SettingsViewWin::adorn(HWND made, const Control& row) const {
  const bool isOurs = isInteractive(row.kind) && row.kind != ControlKind::Tabs;
  if (isEditBox(row.kind)) {
    stripEdit(made);
  } else if (isOurs) {
    SetWindowTheme(made, L"Explorer", nullptr);
  }
  // Only now, so as not to look at each message about the theme and the style.
  if (isOurs) adoptControl(made, look);
  if (row.kind == ControlKind::List) adoptFileList(made, look);
  if (row.cue) {
    SendMessageW(made, EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(wideFrom(row.cue).c_str()));
  }
  fitToDpi(made, row);
}

void SettingsViewWin::fitToDpi(HWND made, const Control& row) const {
  SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(look.fontOf(row.id)), TRUE);
  if (row.kind == ControlKind::Combo) {
    for (const int part : {-1, 0}) {
      SendMessageW(made, CB_SETITEMHEIGHT, static_cast<WPARAM>(part), look.scale(kComboRowUnits));
    }
  }
  if (row.kind == ControlKind::List) {
    SendMessageW(made, LB_SETITEMHEIGHT, 0, look.scale(kFileRowUnits));
  }
  if (isEditBox(row.kind)) fitFrame(made);
}

void SettingsViewWin::adoptDpi(int dpi, const Rect& rect) {
  windowDpi = dpi;
  look.prepare(dpi);
  setIcons(window, look);
  for (const Control& row : allControls()) fitToDpi(control(row.id), row);
  SetWindowPos(window, nullptr, rect.left, rect.top, rect.width(), rect.height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void SettingsViewWin::destroy() {
  if (window != nullptr) DestroyWindow(window);
}

void SettingsViewWin::onDestroying() const { takeSpokenNamesBack(controls); }

void SettingsViewWin::onDestroyed() {
  window = nullptr;
  controls.clear();
  look.release();
}

}  // namespace mrl
