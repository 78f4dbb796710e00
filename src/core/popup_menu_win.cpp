#include "core/popup_menu_win.h"

#include <string>

#include "base/gdi_win.h"
#include "base/geometry_win.h"
#include "base/unique_handle.h"
#include "base/wide_win.h"
#include "core/menu_look.h"

namespace mrl {
namespace {

struct MenuTraits {
  static HMENU none() { return nullptr; }
  static void close(HMENU menu) { DestroyMenu(menu); }
};

Font menuFont(int dpi) { return makeFont(kMenuFont, kMenuFontUnits, FW_NORMAL, dpi); }

COLORREF colourFrom(uint32_t rgb) { return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

COLORREF textColour(MenuItemLook look) {
  switch (look) {
    case MenuItemLook::Pill: return colourFrom(kMenuPillTextColour);
    case MenuItemLook::Highlighted: return GetSysColor(COLOR_HIGHLIGHTTEXT);
    case MenuItemLook::Plain: break;
  }
  return GetSysColor(COLOR_MENUTEXT);
}

void drawPill(HDC dc, const MenuItemPlaces& places) {
  SavedContext saved(dc);
  saved.selectAndOwn(CreateSolidBrush(colourFrom(kMenuPillColour)));
  SelectObject(dc, GetStockObject(NULL_PEN));
  const Rect& pill = places.pill;
  RoundRect(dc, pill.left, pill.top, pill.right, pill.bottom, places.pillCorner, places.pillCorner);
}

/// The text of one of our items; null for any other.
const wchar_t* textOf(UINT controlType, ULONG_PTR data) {
  return controlType == ODT_MENU ? reinterpret_cast<const wchar_t*>(data) : nullptr;
}

}  // namespace

int PopupMenuWin::choose(WindowHandle owner, Point point, const std::vector<MenuItem>& items) {
  const UniqueHandle<MenuTraits> menu(CreatePopupMenu());
  std::vector<std::wstring> texts;
  texts.reserve(items.size());  // the items point into it
  for (const MenuItem& item : items) {
    if (item.text.empty()) {
      AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
      continue;
    }
    texts.push_back(wideFrom(item.text));
    AppendMenuW(menu.get(), MF_OWNERDRAW | (item.checked ? MF_CHECKED : MF_UNCHECKED),
                static_cast<UINT_PTR>(item.command), texts.back().c_str());
  }
  SetForegroundWindow(windowFrom(owner));  // the menu of a background window would not close
  return TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x, point.y, 0,
                        windowFrom(owner), nullptr);
}

bool measureMenuItem(HWND owner, MEASUREITEMSTRUCT& item) {
  const wchar_t* text = textOf(item.CtlType, item.itemData);
  if (text == nullptr) return false;
  const int dpi = dpiOf(owner);
  const HDC dc = GetDC(owner);
  SIZE extent{};
  {
    SavedContext saved(dc);
    saved.selectAndOwn(menuFont(dpi).release());
    GetTextExtentPoint32W(dc, text, lstrlenW(text), &extent);
  }
  ReleaseDC(owner, dc);
  const Size size = menuItemSize(static_cast<int>(extent.cx), dpi);
  item.itemWidth = static_cast<UINT>(size.width);
  item.itemHeight = static_cast<UINT>(size.height);
  return true;
}

bool drawMenuItem(HWND owner, const DRAWITEMSTRUCT& item, bool highContrast) {
  const wchar_t* text = textOf(item.CtlType, item.itemData);
  if (text == nullptr) return false;
  const int dpi = dpiOf(owner);
  const MenuItemLook look = menuItemLook((item.itemState & ODS_SELECTED) != 0, highContrast);
  const MenuItemPlaces places = menuItemPlaces(rectFrom(item.rcItem), dpi);
  SavedContext saved(item.hDC);

  const bool highlighted = look == MenuItemLook::Highlighted;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(highlighted ? COLOR_HIGHLIGHT : COLOR_MENU));
  if (look == MenuItemLook::Pill) drawPill(item.hDC, places);
  SetTextColor(item.hDC, textColour(look));
  SetBkMode(item.hDC, TRANSPARENT);
  saved.selectAndOwn(menuFont(dpi).release());
  if (item.itemState & ODS_CHECKED) {
    RECT check = systemRect(places.check);
    DrawTextW(item.hDC, wideFrom(kMenuCheck).c_str(), -1, &check,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  }
  RECT area = systemRect(places.text);
  DrawTextW(item.hDC, text, -1, &area, DT_VCENTER | DT_SINGLELINE);
  return true;
}

bool isHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace mrl
