#include "settings_window/paint_win.h"

#include <objbase.h>
// Must come after <objbase.h>.
#include <gdiplus.h>

#include "base/geometry_win.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/window_look.h"

namespace mrl {
namespace {

bool isReadOnly(HWND edit) { return (GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY) != 0; }

std::u16string rowText(const DRAWITEMSTRUCT& item, UINT lengthMessage, UINT textMessage) {
  const LRESULT length = SendMessageW(item.hwndItem, lengthMessage, item.itemID, 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<size_t>(length), L'\0');
  SendMessageW(item.hwndItem, textMessage, item.itemID, reinterpret_cast<LPARAM>(text.data()));
  return u16From(text);
}

ColourAsker colourAskerOf(UINT message, HWND control) {
  switch (message) {
    case WM_CTLCOLORSCROLLBAR: return ColourAsker::ScrollBar;
    case WM_CTLCOLORLISTBOX: return ColourAsker::List;
  }
  // A read-only or disabled box asks as a static text does.
  return isWindowClass(control, L"EDIT") ? ColourAsker::Box : ColourAsker::Static;
}

}  // namespace

std::u16string windowText(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return u16From(text);
}

void SettingsLook::prepare(int windowDpi) {
  dpi = windowDpi;
  fonts = makeFonts(dpi);
  if (gdiplus != 0) return;
  page.reset(CreateSolidBrush(systemColour(kPageFill)));
  white.reset(CreateSolidBrush(systemColour(kWhite)));
  readOnly.reset(CreateSolidBrush(systemColour(kReadOnlyFill)));
  Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&gdiplus, &input, nullptr);
}

void SettingsLook::release() {
  fonts = {};
  for (Brush* brush : {&page, &white, &readOnly}) brush->reset();
  if (gdiplus != 0) Gdiplus::GdiplusShutdown(gdiplus);
  gdiplus = 0;
}

void SettingsLook::paintClient(HWND window, const Drawing& drawing) const {
  PAINTSTRUCT area{};
  paint(BeginPaint(window, &area), drawing, fonts);
  EndPaint(window, &area);
}

void SettingsLook::paintWindow(HWND window) const {
  paintClient(window, drawWindow(clientSizeOf(window), form.page, dpi));
}

void SettingsLook::paintPane(HWND window) const {
  paintClient(window, drawPane(clientSizeOf(window), form.cards, dpi));
}

void SettingsLook::paintPreviewHost(HWND window) const {
  paintClient(window, drawPreviewHost(clientSizeOf(window), form.settings.transparent));
}

void SettingsLook::paintQrCode(HWND window) const {
  paintClient(window, drawQrCode(clientSizeOf(window), form.qrMatrix));
}

void SettingsLook::paintEditFrame(HWND window) const {
  RECT outer{};
  GetWindowRect(window, &outer);
  RECT client{};
  GetClientRect(window, &client);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  const HDC dc = GetWindowDC(window);
  ExcludeClipRect(dc, client.left - outer.left, client.top - outer.top, client.right - outer.left,
                  client.bottom - outer.top);
  SCROLLBARINFO bar{};
  bar.cbSize = sizeof bar;
  constexpr DWORD kNotToUse = STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_UNAVAILABLE;
  if (GetScrollBarInfo(window, OBJID_VSCROLL, &bar) && !(bar.rgstate[0] & kNotToUse)) {
    OffsetRect(&bar.rcScrollBar, -outer.left, -outer.top);
    ExcludeClipRect(dc, bar.rcScrollBar.left, bar.rcScrollBar.top, bar.rcScrollBar.right,
                    bar.rcScrollBar.bottom);
  }
  const BoxState box{.size = {rectFrom(outer).width(), rectFrom(outer).height()},
                     .isReadOnly = isReadOnly(window),
                     .isInvalid = GetPropW(window, kInvalidProperty) != nullptr,
                     .isFocused = GetFocus() == window};
  paint(dc, drawBoxFrame(box, dpi), fonts);
  ReleaseDC(window, dc);
}

void SettingsLook::narrowToFrame(RECT& client) const {
  const Rect inner = withinBoxFrame(rectFrom(client), dpi);
  client = {inner.left, inner.top, inner.right, inner.bottom};
}

void SettingsLook::paintEmptyList(HWND window) const {
  const HDC dc = GetDC(window);
  paint(dc, drawEmptyList(clientSizeOf(window), dpi, GetFocus() == window), fonts);
  ReleaseDC(window, dc);
}

bool SettingsLook::drawItem(const DRAWITEMSTRUCT& item) const {
  if (item.CtlType == ODT_STATIC && item.CtlID == kStatusText) {
    paint(
        item.hDC,
        drawStatusLine(clientSizeOf(item.hwndItem), windowText(item.hwndItem), form.settingsDirty),
        fonts);
    return true;
  }
  const bool inCombo = item.CtlType == ODT_COMBOBOX;
  if (!inCombo && (item.CtlType != ODT_LISTBOX || item.CtlID != kFileList)) return false;
  const Rect row = rectFrom(item.rcItem);
  const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
  const bool hasCursor = (item.itemState & ODS_FOCUS) != 0;
  if (item.itemState & ODS_COMBOBOXEDIT) {
    InvalidateRect(item.hwndItem, nullptr, FALSE);  // the whole combo is painted at once
  } else if (inCombo) {
    const std::u16string text = rowText(item, CB_GETLBTEXTLEN, CB_GETLBTEXT);
    paint(item.hDC, drawComboRow(row, text, isSelected, dpi), fonts);
  } else if (item.itemID != static_cast<UINT>(-1)) {
    const std::u16string text = rowText(item, LB_GETTEXTLEN, LB_GETTEXT);
    paint(item.hDC, drawFileRow(row, text, isSelected, dpi, hasCursor), fonts);
  }
  return true;
}

bool SettingsLook::measureItem(MEASUREITEMSTRUCT& item) const {
  if (item.CtlType == ODT_MENU) return false;
  item.itemHeight =
      static_cast<UINT>(scale(item.CtlID == kFileList ? kFileRowUnits : kComboRowUnits));
  return true;
}

HBRUSH SettingsLook::controlColours(UINT message, HDC dc, HWND control) const {
  const ChildColours colours =
      childColours(colourAskerOf(message, control), {.id = GetDlgCtrlID(control),
                                                     .isEnabled = IsWindowEnabled(control) != FALSE,
                                                     .isReadOnly = isReadOnly(control),
                                                     .hasUnsavedInput = form.settingsDirty});
  SetTextColor(dc, systemColour(colours.text));
  SetBkColor(dc, systemColour(colours.fill));
  if (colours.isTransparent) SetBkMode(dc, TRANSPARENT);
  if (colours.fill == kPageFill) return page.get();
  return (colours.fill == kReadOnlyFill ? readOnly : white).get();
}

void SettingsLook::paintControl(HWND window) const {
  const int id = GetDlgCtrlID(window);
  ControlState state{
      .id = id,
      .size = clientSizeOf(window),
      .text = windowText(window),
      .isEnabled = IsWindowEnabled(window) != FALSE,
      .isChecked = SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED,
      .isPressed = (SendMessageW(window, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0,
      .isHovered = GetPropW(window, kHoverProperty) != nullptr,
      .isFocused = GetFocus() == window,
      .isActive = GetPropW(window, kActiveProperty) != nullptr || id == kFirstSection + form.page};
  if (const auto box = colourBoxOf(id)) {
    state.colourText = windowText(GetDlgItem(GetParent(window), *box));
  }
  paintClient(window, drawControl(state, dpi));
}

}  // namespace mrl
