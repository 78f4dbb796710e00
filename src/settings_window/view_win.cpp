#include "settings_window/view_win.h"

#include <commctrl.h>

#include "base/geometry_win.h"
#include "base/wide_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/scroll_bar_win.h"

namespace mrl {
namespace {

const wchar_t* propertyOf(Mark mark) {
  switch (mark) {
    case Mark::Hover: return kHoverProperty;
    case Mark::Active: return kActiveProperty;
    case Mark::Invalid: break;
  }
  return kInvalidProperty;
}

constexpr UINT kLayerOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
constexpr UINT kPlaceFlags = SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE | SWP_NOOWNERZORDER;

}  // namespace

HWND SettingsViewWin::control(int id) const {
  const auto found = controls.find(id);
  return found == controls.end() ? nullptr : found->second;
}

LRESULT SettingsViewWin::send(int id, UINT message, WPARAM wParam, LPARAM lParam) const {
  const HWND target = control(id);
  return target == nullptr ? 0 : SendMessageW(target, message, wParam, lParam);
}

WindowHandle SettingsViewWin::handle() const { return handleFrom(window); }

void SettingsViewWin::show() { comeUp(SW_SHOW); }

void SettingsViewWin::restore() { comeUp(SW_RESTORE); }

void SettingsViewWin::comeUp(int how) {
  ShowWindow(window, how);
  if (aboveAll) SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kLayerOnly);
  SetForegroundWindow(window);
}

void SettingsViewWin::standAboveAll(bool on) {
  aboveAll = on;
  if (!on) SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, kLayerOnly);
}

std::u16string SettingsViewWin::text(int id) { return windowText(control(id)); }

void SettingsViewWin::setText(int id, const std::u16string& text) {
  SetWindowTextW(control(id), wideFrom(text).c_str());
}

bool SettingsViewWin::isChecked(int id) { return send(id, BM_GETCHECK) == BST_CHECKED; }

void SettingsViewWin::setChecked(int id, bool checked) {
  send(id, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
}

int SettingsViewWin::row(int id) {
  const Control* found = findControl(id);
  if (!isOpen() || !found) return -1;
  const UINT message = found->kind == ControlKind::Tabs   ? TCM_GETCURSEL
                       : found->kind == ControlKind::List ? LB_GETCURSEL
                                                          : CB_GETCURSEL;
  return static_cast<int>(send(id, message));
}

void SettingsViewWin::setRow(int id, int row) {
  const Control* found = findControl(id);
  if (!found) return;
  const UINT message = found->kind == ControlKind::Tabs   ? TCM_SETCURSEL
                       : found->kind == ControlKind::List ? LB_SETCURSEL
                                                          : CB_SETCURSEL;
  send(id, message, static_cast<WPARAM>(row));
}

void SettingsViewWin::setListRows(int id, const std::vector<std::u16string>& rows) {
  send(id, LB_RESETCONTENT);
  for (const std::u16string& row : rows) {
    send(id, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wideFrom(row).c_str()));
  }
}

int SettingsViewWin::topRow(int id) { return static_cast<int>(send(id, LB_GETTOPINDEX)); }

void SettingsViewWin::setTopRow(int id, int row) {
  send(id, LB_SETTOPINDEX, static_cast<WPARAM>(row));
}

bool SettingsViewWin::hasFocus(int id) { return isOpen() && GetFocus() == control(id); }

void SettingsViewWin::focus(int id) {
  if (control(id) != nullptr) SetFocus(control(id));
}

void SettingsViewWin::enable(int id, bool enabled) {
  const HWND target = control(id);
  if (target != nullptr && (IsWindowEnabled(target) != FALSE) != enabled) {
    EnableWindow(target, enabled);
  }
}

bool SettingsViewWin::mark(int id, Mark mark) {
  return control(id) != nullptr && GetPropW(control(id), propertyOf(mark)) != nullptr;
}

void SettingsViewWin::setMark(int id, Mark mark, bool on) {
  const HWND target = control(id);
  if (target == nullptr) return;
  if (on) {
    SetPropW(target, propertyOf(mark), reinterpret_cast<HANDLE>(1));
  } else {
    RemovePropW(target, propertyOf(mark));
  }
}

void SettingsViewWin::redrawFrame(int id) {
  if (control(id) == nullptr) return;
  RedrawWindow(control(id), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
}

void SettingsViewWin::invalidate(int id) {
  if (control(id) != nullptr) InvalidateRect(control(id), nullptr, FALSE);
}

Size SettingsViewWin::clientSize() const { return clientSizeOf(window); }

Rect SettingsViewWin::rectOf(int id) {
  const HWND target = control(id);
  if (target == nullptr) return {};
  RECT rect{};
  GetWindowRect(target, &rect);
  MapWindowPoints(nullptr, GetParent(target), reinterpret_cast<POINT*>(&rect), 2);
  return rectFrom(rect);
}

void SettingsViewWin::placeOne(const Placement& placement) const {
  const Rect& rect = placement.rect;
  SetWindowPos(control(placement.id), nullptr, rect.left, rect.top, rect.width(), rect.height(),
               kPlaceFlags);
}

void SettingsViewWin::place(std::span<const Placement> placements) {
  for (const HWND parent : {window, control(kContentPane)}) {
    const auto isHere = [&](const Placement& placement) {
      const HWND target = control(placement.id);
      return target != nullptr && GetParent(target) == parent;
    };
    HDWP batch = BeginDeferWindowPos(static_cast<int>(placements.size()));
    for (const Placement& placement : placements) {
      if (batch == nullptr || !isHere(placement)) continue;
      const Rect& rect = placement.rect;
      batch = DeferWindowPos(batch, control(placement.id), nullptr, rect.left, rect.top,
                             rect.width(), rect.height(), kPlaceFlags);
    }
    if (batch != nullptr && EndDeferWindowPos(batch)) continue;
    for (const Placement& placement : placements) {
      if (isHere(placement)) placeOne(placement);
    }
  }
}

void SettingsViewWin::setVisible(int id, bool visible) {
  const HWND target = control(id);
  if (target == nullptr) return;
  const bool now = (GetWindowLongPtrW(target, GWL_STYLE) & WS_VISIBLE) != 0;
  if (now != visible) ShowWindow(target, visible ? SW_SHOWNA : SW_HIDE);
}

ScrollInfo SettingsViewWin::scrollInfo() { return scrollInfoOf(control(kContentPane), SB_VERT); }

void SettingsViewWin::setScrollInfo(const ScrollInfo& info) {
  setScrollInfoOf(control(kContentPane), SB_VERT, info);
}

void SettingsViewWin::redrawAll() {
  if (!isOpen()) return;
  RedrawWindow(window, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW | RDW_FRAME);
}

void SettingsViewWin::redrawPane() {
  if (!isOpen()) return;
  RedrawWindow(control(kContentPane), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME);
}

}  // namespace mrl
