#include "core/popup_menu_win.h"

#include <string>

#include "core/geometry_win.h"
#include "core/menu_look.h"
#include "core/unique_handle.h"
#include "core/wide_win.h"

namespace mrl {
namespace {

struct MenuTraits {
  static HMENU none() { return nullptr; }
  static void close(HMENU menu) { DestroyMenu(menu); }
};
struct FontTraits {
  static HFONT none() { return nullptr; }
  static void close(HFONT font) { DeleteObject(font); }
};
struct BrushTraits {
  static HBRUSH none() { return nullptr; }
  static void close(HBRUSH brush) { DeleteObject(brush); }
};
using Font = UniqueHandle<FontTraits>;

/// Whatever is selected into the context meanwhile is out again at the end.
class SavedContext {
 public:
  explicit SavedContext(HDC context) : dc(context), saved(SaveDC(context)) {}
  SavedContext(const SavedContext&) = delete;
  SavedContext& operator=(const SavedContext&) = delete;
  ~SavedContext() { RestoreDC(dc, saved); }

 private:
  HDC dc;
  int saved;
};

int dpiOf(HWND window) { return static_cast<int>(GetDpiForWindow(window)); }

Font menuFont(int dpi) {
  return Font(CreateFontW(-toPixels(kMenuFontUnits, dpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                          DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                          CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                          wideFrom(kMenuFont).c_str()));
}

COLORREF colourFrom(uint32_t rgb) { return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

RECT systemRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

COLORREF textColour(MenuItemLook look) {
  switch (look) {
    case MenuItemLook::Pill: return colourFrom(kMenuPillTextColour);
    case MenuItemLook::Highlighted: return GetSysColor(COLOR_HIGHLIGHTTEXT);
    case MenuItemLook::Plain: break;
  }
  return GetSysColor(COLOR_MENUTEXT);
}

void drawPill(HDC dc, const MenuItemPlaces& places) {
  const SavedContext saved(dc);
  const UniqueHandle<BrushTraits> brush(CreateSolidBrush(colourFrom(kMenuPillColour)));
  SelectObject(dc, brush.get());
  SelectObject(dc, GetStockObject(NULL_PEN));
  const Rect& pill = places.pill;
  RoundRect(dc, pill.left, pill.top, pill.right, pill.bottom, places.pillCorner, places.pillCorner);
}

/// The text of an item of ours; null for anything else.
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
  SetForegroundWindow(windowFrom(owner));  // a menu of a window in the background would not close
  return TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x, point.y, 0,
                        windowFrom(owner), nullptr);
}

bool measureMenuItem(HWND owner, MEASUREITEMSTRUCT& item) {
  const wchar_t* text = textOf(item.CtlType, item.itemData);
  if (text == nullptr) return false;
  const int dpi = dpiOf(owner);
  const Font font = menuFont(dpi);
  const HDC dc = GetDC(owner);
  SIZE extent{};
  {
    const SavedContext saved(dc);
    SelectObject(dc, font.get());
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
  const Font font = menuFont(dpi);
  const SavedContext saved(item.hDC);

  const bool highlighted = look == MenuItemLook::Highlighted;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(highlighted ? COLOR_HIGHLIGHT : COLOR_MENU));
  if (look == MenuItemLook::Pill) drawPill(item.hDC, places);
  SetTextColor(item.hDC, textColour(look));
  SetBkMode(item.hDC, TRANSPARENT);
  SelectObject(item.hDC, font.get());
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
