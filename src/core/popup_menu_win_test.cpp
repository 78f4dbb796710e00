// The real menu: its structure, the result of a choice, and how its items are drawn.
#include "core/popup_menu_win.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/geometry_win.h"
#include "base/replaced_import_win.h"
#include "base/wide_win.h"
#include "core/menu_look.h"

namespace mrl {
namespace {

constexpr wchar_t kClass[] = L"Marlune test menu owner";
constexpr COLORREF kPill = RGB(0xE8, 0xF1, 0xFF);
constexpr COLORREF kPillText = RGB(0x1B, 0x4D, 0x9B);

/// A window that owns menus and lets a test act as the user while one is open.
class MenuOwner {
 public:
  MenuOwner() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassExW(&windowClass);
    window = CreateWindowExW(0, kClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                             windowClass.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  MenuOwner(const MenuOwner&) = delete;
  ~MenuOwner() {
    DestroyWindow(window);
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
  }

  /// Opens the menu; `act` is called once with it and must close it.
  int open(const std::vector<MenuItem>& items, std::function<void(HMENU)> act) {
    hand = std::move(act);
    SetTimer(window, 1, 10, nullptr);
    const int chosen = PopupMenuWin().choose(handleFrom(window), {100, 100}, items);
    KillTimer(window, 1);
    EXPECT_FALSE(hand) << "the menu was never seen";
    return chosen;
  }
  void press(WPARAM key) const { PostMessageW(window, WM_KEYDOWN, key, 0); }

  HWND window = nullptr;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<MenuOwner*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
      case WM_MEASUREITEM:
        return measureMenuItem(window, *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
      case WM_DRAWITEM:
        return drawMenuItem(window, *reinterpret_cast<DRAWITEMSTRUCT*>(lParam), false);
      case WM_TIMER: self->lookForMenu(); return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  void lookForMenu() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    const bool isOurs = GetWindowThreadProcessId(menu, nullptr) == GetCurrentThreadId();
    if (!hand || !isOurs || !IsWindowVisible(menu)) return;
    const auto act = std::move(hand);
    hand = nullptr;
    act(reinterpret_cast<HMENU>(SendMessageW(menu, MN_GETHMENU, 0, 0)));
  }

  std::function<void(HMENU)> hand;
};

const std::vector<MenuItem> kItems = {
    {100, u"开始/暂停计时 (F2)"}, {}, {113, u"自动模式", true}, {112, u"手动模式", false}};

struct RealItem {
  UINT command;
  UINT type;
  UINT state;
  std::wstring text;
};
RealItem itemOf(HMENU menu, UINT position) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_DATA;
  EXPECT_TRUE(GetMenuItemInfoW(menu, position, TRUE, &info));
  const auto* text = reinterpret_cast<const wchar_t*>(info.dwItemData);
  return {info.wID, info.fType, info.fState, text != nullptr ? text : L""};
}

/// Reallocates small freed blocks and overwrites them.
std::vector<std::string> overwriteFreedMemory() {
  std::vector<std::string> blocks;
  for (const size_t bytes : {32, 64, 128, 256}) {
    for (int i = 0; i < 100; ++i) blocks.emplace_back(bytes - 1, 'x');
  }
  return blocks;
}

TEST(PopupMenuWinTest, ItsItemsAreDrawnByUsAndPointToTheirTexts) {
  MenuOwner owner;
  owner.open(kItems, [](HMENU menu) {
    const std::vector<std::string> others = overwriteFreedMemory();
    EXPECT_EQ(GetMenuItemCount(menu), 4);
    for (const UINT position : {0u, 2u, 3u}) {
      const RealItem item = itemOf(menu, position);
      EXPECT_EQ(item.command, static_cast<UINT>(kItems[position].command));
      EXPECT_EQ(item.text, wideFrom(kItems[position].text));
      EXPECT_TRUE(item.type & MFT_OWNERDRAW);
    }
    EndMenu();
  });
}

TEST(PopupMenuWinTest, ASeparatorIsTheSystems) {
  MenuOwner owner;
  owner.open(kItems, [](HMENU menu) {
    EXPECT_TRUE(itemOf(menu, 1).type & MFT_SEPARATOR);
    EXPECT_FALSE(itemOf(menu, 1).type & MFT_OWNERDRAW);
    EndMenu();
  });
}

TEST(PopupMenuWinTest, OnlyTheCheckedItemIsChecked) {
  MenuOwner owner;
  owner.open(kItems, [](HMENU menu) {
    EXPECT_FALSE(itemOf(menu, 0).state & MFS_CHECKED);
    EXPECT_TRUE(itemOf(menu, 2).state & MFS_CHECKED);
    EXPECT_FALSE(itemOf(menu, 3).state & MFS_CHECKED);
    EndMenu();
  });
}

TEST(PopupMenuWinTest, AChoiceGivesItsCommand) {
  MenuOwner owner;
  EXPECT_EQ(owner.open(kItems,
                       [&](HMENU) {
                         owner.press(VK_DOWN);
                         owner.press(VK_DOWN);
                         owner.press(VK_RETURN);
                       }),
            113);
}

TEST(PopupMenuWinTest, EscapeGivesNone) {
  MenuOwner owner;
  EXPECT_EQ(owner.open(kItems, [&](HMENU) { owner.press(VK_ESCAPE); }), 0);
}

TEST(PopupMenuWinTest, AnOwnerThatGoesEndsTheMenu) {
  MenuOwner owner;
  EXPECT_EQ(owner.open(kItems, [&](HMENU) { DestroyWindow(owner.window); }), 0);
}

TEST(PopupMenuWinTest, ItIsDestroyedAfterwards) {
  MenuOwner owner;
  HMENU seen = nullptr;
  owner.open(kItems, [&](HMENU menu) {
    seen = menu;
    EndMenu();
  });
  EXPECT_FALSE(IsMenu(seen));
}

/// One item drawn into a bitmap.
class MenuItemDrawingTest : public testing::Test {
 protected:
  void SetUp() override {
    MEASUREITEMSTRUCT measured{};
    measured.CtlType = ODT_MENU;
    measured.itemData = reinterpret_cast<ULONG_PTR>(kText);
    ASSERT_TRUE(measureMenuItem(owner.window, measured));
    size = {static_cast<int>(measured.itemWidth), static_cast<int>(measured.itemHeight)};
    const HDC screen = GetDC(nullptr);
    dc = CreateCompatibleDC(screen);
    bitmap = CreateCompatibleBitmap(screen, size.width, size.height);
    ReleaseDC(nullptr, screen);
    SelectObject(dc, bitmap);
  }
  void TearDown() override {
    DeleteDC(dc);
    DeleteObject(bitmap);
  }

  DRAWITEMSTRUCT item(UINT state) const {
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.itemState = state;
    item.hDC = dc;
    item.rcItem = {0, 0, size.width, size.height};
    item.itemData = reinterpret_cast<ULONG_PTR>(kText);
    return item;
  }
  void draw(UINT state, bool highContrast = false) {
    ASSERT_TRUE(drawMenuItem(owner.window, item(state), highContrast));
  }
  int dpi() const { return static_cast<int>(GetDpiForWindow(owner.window)); }
  MenuItemPlaces places() const { return menuItemPlaces({0, 0, size.width, size.height}, dpi()); }
  COLORREF corner() const { return GetPixel(dc, 0, 0); }
  COLORREF pillPixel() const { return GetPixel(dc, size.width / 2, places().pill.top + 1); }
  /// Whether any pixel in the area differs from its upper left one, and whether any is `colour`.
  bool hasInk(const Rect& area) const { return !isAll(area, pixel(area)); }
  bool has(const Rect& area, COLORREF colour) const {
    return find(area, [&](COLORREF found) { return found == colour; });
  }

  static constexpr wchar_t kText[] = L"开始/暂停计时 (F2)";
  MenuOwner owner;
  Size size;
  HDC dc = nullptr;

 private:
  COLORREF pixel(const Rect& area) const { return GetPixel(dc, area.left, area.top + 3); }
  bool isAll(const Rect& area, COLORREF colour) const {
    return !find(area, [&](COLORREF found) { return found != colour; });
  }
  bool find(const Rect& area, const std::function<bool(COLORREF)>& wanted) const {
    // The first rows may belong to the edge of a pill.
    for (int y = area.top + 3; y < area.bottom - 4; ++y) {
      for (int x = area.left; x < area.right; ++x) {
        if (wanted(GetPixel(dc, x, y))) return true;
      }
    }
    return false;
  }

  HBITMAP bitmap = nullptr;
};

TEST_F(MenuItemDrawingTest, ItsWidthIsThatOfTheTextAndFortyEightMore) {
  const HDC screen = GetDC(owner.window);
  const HFONT font = CreateFontW(-MulDiv(13, dpi(), 96), 0, 0, 0, 400, FALSE, FALSE, FALSE,
                                 DEFAULT_CHARSET, 0, 0, CLEARTYPE_QUALITY, 0, L"Segoe UI");
  const HGDIOBJ before = SelectObject(screen, font);
  SIZE extent{};
  GetTextExtentPoint32W(screen, kText, lstrlenW(kText), &extent);
  SelectObject(screen, before);
  DeleteObject(font);
  ReleaseDC(owner.window, screen);
  EXPECT_EQ(size.width, extent.cx + MulDiv(48, dpi(), 96));
  EXPECT_EQ(size.height, MulDiv(30, dpi(), 96));
}

HDC givenBack = nullptr;
int WINAPI noteRelease(HWND /*window*/, HDC context) {
  givenBack = context;
  return 1;
}

TEST_F(MenuItemDrawingTest, MeasuringGivesTheWindowsContextBack) {
  const ReplacedImport<decltype(noteRelease)> system("ReleaseDC", noteRelease);
  givenBack = nullptr;
  MEASUREITEMSTRUCT measured{};
  measured.CtlType = ODT_MENU;
  measured.itemData = reinterpret_cast<ULONG_PTR>(kText);
  ASSERT_TRUE(measureMenuItem(owner.window, measured));
  ASSERT_NE(givenBack, nullptr);
  EXPECT_EQ(WindowFromDC(givenBack), owner.window);
}

TEST_F(MenuItemDrawingTest, APlainItemStandsOnTheMenusColour) {
  draw(0);
  EXPECT_EQ(corner(), GetSysColor(COLOR_MENU));
  EXPECT_EQ(pillPixel(), GetSysColor(COLOR_MENU));
  EXPECT_TRUE(has(places().text, GetSysColor(COLOR_MENUTEXT)));
}

TEST_F(MenuItemDrawingTest, ASelectedItemStandsOnAPillWithTextInItsOwnColour) {
  draw(ODS_SELECTED);
  EXPECT_EQ(corner(), GetSysColor(COLOR_MENU));
  EXPECT_EQ(pillPixel(), kPill);
  EXPECT_TRUE(has(places().text, kPillText));
  EXPECT_FALSE(has(places().text, GetSysColor(COLOR_MENUTEXT)));
}

TEST_F(MenuItemDrawingTest, ThePillIsRoundAndInset) {
  draw(ODS_SELECTED);
  const Rect pill = places().pill;
  EXPECT_NE(GetPixel(dc, pill.left, pill.top), kPill);
  EXPECT_EQ(GetPixel(dc, pill.left + 1, size.height / 2), kPill);
  EXPECT_NE(GetPixel(dc, pill.left - 1, size.height / 2), kPill);
  EXPECT_NE(GetPixel(dc, size.width / 2, pill.top - 1), kPill);
}

TEST_F(MenuItemDrawingTest, InHighContrastASelectedItemHasTheSystemsColours) {
  draw(ODS_SELECTED, true);
  EXPECT_EQ(corner(), GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(pillPixel(), GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_TRUE(has(places().text, GetSysColor(COLOR_HIGHLIGHTTEXT)));
}

TEST_F(MenuItemDrawingTest, InHighContrastAnItemThatIsNotSelectedIsPlain) {
  draw(0, true);
  EXPECT_EQ(corner(), GetSysColor(COLOR_MENU));
  EXPECT_TRUE(has(places().text, GetSysColor(COLOR_MENUTEXT)));
}

TEST_F(MenuItemDrawingTest, OnlyACheckedItemHasACheckInItsBox) {
  draw(0);
  EXPECT_FALSE(hasInk(places().check));
  draw(ODS_CHECKED);
  EXPECT_TRUE(hasInk(places().check));
}

TEST_F(MenuItemDrawingTest, TheTextEndsShortOfTheRightEdge) {
  draw(0);
  EXPECT_TRUE(hasInk(places().text));
  EXPECT_FALSE(hasInk({places().text.right, 0, size.width, size.height}));
}

TEST_F(MenuItemDrawingTest, TheContextIsLeftAsItWas) {
  const HGDIOBJ font = GetCurrentObject(dc, OBJ_FONT);
  const COLORREF colour = GetTextColor(dc);
  draw(ODS_SELECTED);
  EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), font);
  EXPECT_EQ(GetTextColor(dc), colour);
}

TEST_F(MenuItemDrawingTest, WhatIsNoMenuItemWithTextIsLeftToOthers) {
  MEASUREITEMSTRUCT measured{};
  measured.CtlType = ODT_BUTTON;
  measured.itemData = 1;
  EXPECT_FALSE(measureMenuItem(owner.window, measured));
  measured.CtlType = ODT_MENU;
  measured.itemData = 0;
  EXPECT_FALSE(measureMenuItem(owner.window, measured));

  DRAWITEMSTRUCT drawn = item(0);
  drawn.CtlType = ODT_BUTTON;
  EXPECT_FALSE(drawMenuItem(owner.window, drawn, false));
  drawn.CtlType = ODT_MENU;
  drawn.itemData = 0;
  EXPECT_FALSE(drawMenuItem(owner.window, drawn, false));
}

}  // namespace
}  // namespace mrl
