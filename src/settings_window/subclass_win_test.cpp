// Real controls with our painting: what they request of the look, and the pixels on the screen.
#include "settings_window/subclass_win.h"

#include <gtest/gtest.h>

#include <set>

#include "base/geometry_win.h"
#include "overlay/test_window_class_win.h"
#include "settings_window/control_ids.h"

namespace mrl {
namespace {

constexpr wchar_t kParentClass[] = L"Marlune.Test.Look";
constexpr uint32_t kAlien = 0xFF00FF;  // used by none of our drawings

class SettingsSubclassTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parentClass.registered);
    look.prepare(96);
    parent = CreateWindowExW(WS_EX_TOPMOST, kParentClass, L"", WS_POPUP | WS_VISIBLE, 100, 100, 400,
                             300, nullptr, nullptr, GetModuleHandleW(nullptr), &parentClass);
    ASSERT_NE(parent, nullptr);
  }
  void TearDown() override { DestroyWindow(parent); }

  HWND add(const wchar_t* name, int id, Size size, DWORD style = 0, const wchar_t* text = L"") {
    const HWND made = CreateWindowExW(
        0, name, text, WS_CHILD | WS_VISIBLE | style, 20, 20, size.width, size.height, parent,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    adoptControl(made, look);
    SetWindowPos(made, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
    return made;
  }
  HWND addButton(int id = kCloseButton, DWORD style = BS_PUSHBUTTON) {
    return add(L"BUTTON", id, {100, 40}, style);
  }
  HWND addCombo() {
    const HWND combo = add(L"ComboBox", kShapeCombo, {144, 190}, CBS_DROPDOWNLIST);
    for (const wchar_t* row : {L"a", L"b"}) {
      SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
    }
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    return combo;
  }
  HWND addEdit(Size size, DWORD style = 0) { return add(L"EDIT", kFolderBox, size, style); }

  /// Whether the message invalidates the control.
  static bool invalidates(HWND control, UINT message, WPARAM wide = 0, LPARAM narrow = 0) {
    ValidateRect(control, nullptr);
    SendMessageW(control, message, wide, narrow);
    return GetUpdateRect(control, nullptr, FALSE) != FALSE;
  }
  /// A pixel of the control with its frame, after pending paints.
  static uint32_t pixel(HWND control, int x, int y) {
    UpdateWindow(control);
    const HDC dc = GetWindowDC(control);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(control, dc);
    return static_cast<uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 |
                                 GetBValue(colour));
  }
  static void set(HWND control, const wchar_t* property) {
    SetPropW(control, property, reinterpret_cast<HANDLE>(1));
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
  }

  TestWindowClass parentClass{kParentClass};
  SettingsForm form;
  SettingsLook look{form};
  HWND parent = nullptr;
};

TEST_F(SettingsSubclassTest, ButtonsAndCombosEraseNothing) {
  const HDC dc = GetDC(parent);
  for (const HWND control : {addButton(), addCombo()}) {
    EXPECT_EQ(SendMessageW(control, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 1);
  }
  ReleaseDC(parent, dc);
}

TEST_F(SettingsSubclassTest, EveryKindNoticesTheMouseComeAndGo) {
  const HWND list = add(L"LISTBOX", kFileList, {200, 100});
  for (const HWND control : {addButton(), addCombo(), addEdit({100, 38}), list}) {
    EXPECT_TRUE(invalidates(control, WM_MOUSEMOVE));
    EXPECT_NE(GetPropW(control, kHoverProperty), nullptr);
    EXPECT_TRUE(invalidates(control, WM_MOUSELEAVE));
    EXPECT_EQ(GetPropW(control, kHoverProperty), nullptr);
  }
}

TEST_F(SettingsSubclassTest, AMoveWithinTheControlChangesNothing) {
  const HWND button = addButton();
  SendMessageW(button, WM_MOUSEMOVE, 0, 0);
  EXPECT_FALSE(invalidates(button, WM_MOUSEMOVE));
}

TEST_F(SettingsSubclassTest, WhateverChangesTheLookIsPainted) {
  const HWND button = addButton();
  constexpr UINT kPlain[] = {WM_SETFOCUS,  WM_KILLFOCUS, WM_LBUTTONDOWN,
                             WM_LBUTTONUP, BM_SETSTATE,  WM_UPDATEUISTATE};
  for (const UINT message : kPlain) {
    EXPECT_TRUE(invalidates(button, message)) << message;
  }
  EXPECT_TRUE(invalidates(button, WM_ENABLE, FALSE));
  EXPECT_TRUE(invalidates(button, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Go")));
  EXPECT_TRUE(invalidates(addButton(kBlinkCheck, BS_AUTOCHECKBOX), BM_SETCHECK, BST_CHECKED));
  EXPECT_TRUE(invalidates(addCombo(), CB_SETCURSEL, 1));
  const HWND list = add(L"LISTBOX", kFileList, {200, 100});
  SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"a"));
  EXPECT_TRUE(invalidates(list, LB_SETCURSEL, 0));
}

TEST_F(SettingsSubclassTest, AClosedCombosWheelIsTheParents) {
  const HWND combo = addCombo();
  const WPARAM notch = MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA));
  SendMessageW(combo, WM_MOUSEWHEEL, notch, 0);
  EXPECT_TRUE(parentClass.received(WM_MOUSEWHEEL, notch));
  EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 0);
}

TEST_F(SettingsSubclassTest, AnOpenCombosWheelIsItsOwn) {
  const HWND combo = addCombo();
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  const WPARAM notch = MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA));
  SendMessageW(combo, WM_MOUSEWHEEL, notch, 0);
  EXPECT_FALSE(parentClass.received(WM_MOUSEWHEEL, notch));
  SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
}

TEST_F(SettingsSubclassTest, ABoxesTextStandsWithinItsFrame) {
  EXPECT_EQ(clientSizeOf(addEdit({100, 38})), (Size{80, 25}));
  EXPECT_EQ(clientSizeOf(addEdit({40, 26})), (Size{40, 26}));
}

TEST_F(SettingsSubclassTest, ABoxesPaddingBelongsToItsTextForTheMouse) {
  const HWND edit = addEdit({100, 38});
  RECT outer{};
  GetWindowRect(edit, &outer);
  const auto hit = [&](int x, int y) {
    return SendMessageW(edit, WM_NCHITTEST, 0, MAKELPARAM(outer.left + x, outer.top + y));
  };
  EXPECT_EQ(hit(50, 19), HTCLIENT);
  for (const POINT at : {POINT{1, 1}, POINT{4, 19}, POINT{96, 19}, POINT{50, 3}, POINT{50, 36}}) {
    EXPECT_EQ(hit(at.x, at.y), HTCLIENT) << at.x << "," << at.y;
  }
}

TEST_F(SettingsSubclassTest, ABoxesScrollBarStaysOneForTheMouse) {
  const HWND edit = addEdit({200, 60}, ES_MULTILINE | ES_READONLY | WS_VSCROLL);
  SetWindowTextW(edit, L"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8");
  SCROLLBARINFO bar{};
  bar.cbSize = sizeof bar;
  ASSERT_TRUE(GetScrollBarInfo(edit, OBJID_VSCROLL, &bar));
  const LONG x = (bar.rcScrollBar.left + bar.rcScrollBar.right) / 2;
  const LONG y = (bar.rcScrollBar.top + bar.rcScrollBar.bottom) / 2;
  EXPECT_EQ(SendMessageW(edit, WM_NCHITTEST, 0, MAKELPARAM(x, y)), HTVSCROLL);
}

TEST_F(SettingsSubclassTest, WhatTheSystemPaintsIntoAClosedComboIsPaintedOverAtOnce) {
  const HWND combo = addCombo();
  UpdateWindow(combo);
  const HDC dc = GetDC(combo);
  DRAWITEMSTRUCT item{};
  item.CtlType = ODT_COMBOBOX;
  item.CtlID = kShapeCombo;
  item.hwndItem = combo;
  item.hDC = dc;
  item.rcItem = {3, 3, 100, 30};
  item.itemState = ODS_SELECTED | ODS_COMBOBOXEDIT;
  SetPixel(dc, 50, 10, systemColour(kAlien));
  EXPECT_TRUE(look.drawItem(item));
  EXPECT_EQ(GetPixel(dc, 50, 10), systemColour(kAlien)) << "no row of a list goes there";
  EXPECT_TRUE(GetUpdateRect(combo, nullptr, FALSE));
  EXPECT_NE(pixel(combo, 50, 10), kAlien);
  ReleaseDC(combo, dc);
}

TEST_F(SettingsSubclassTest, ABoxesFrameFollowsItsMarkAndItsFocus) {
  const HWND edit = addEdit({100, 38});
  set(edit, L"Marlune.Hover");
  EXPECT_EQ(pixel(edit, 0, 19), kHairline);
  EXPECT_EQ(pixel(edit, 99, 19), kHairline);
  EXPECT_EQ(pixel(edit, 50, 37), kHairline);
  SetFocus(edit);
  EXPECT_EQ(pixel(edit, 0, 19), kAccent);
  set(edit, L"Marlune.Invalid");
  EXPECT_EQ(pixel(edit, 0, 19), kInvalidLine);
}

TEST_F(SettingsSubclassTest, AMarkTakenOffBeforeANewTextIsGoneFromTheFrame) {
  const HWND edit = addEdit({100, 38});
  set(edit, L"Marlune.Invalid");
  ASSERT_EQ(pixel(edit, 0, 19), kInvalidLine);
  RemovePropW(edit, L"Marlune.Invalid");
  SetWindowTextW(edit, L"5");
  EXPECT_EQ(pixel(edit, 0, 19), kHairline);
}

TEST_F(SettingsSubclassTest, AFrameLeavesTheTextWithinItAlone) {
  const HWND edit = addEdit({100, 38});
  UpdateWindow(edit);
  const HDC dc = GetDC(edit);
  SetPixel(dc, 20, 10, systemColour(kAlien));
  SendMessageW(edit, WM_NCPAINT, 1, 0);
  EXPECT_EQ(GetPixel(dc, 20, 10), systemColour(kAlien));
  ReleaseDC(edit, dc);
}

TEST_F(SettingsSubclassTest, AFrameLeavesAScrollBarInUseAlone) {
  const HWND edit = addEdit({200, 60}, ES_MULTILINE | ES_READONLY | WS_VSCROLL);
  SetWindowTextW(edit, L"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8");
  set(edit, kHoverProperty);
  SCROLLBARINFO bar{};
  bar.cbSize = sizeof bar;
  ASSERT_TRUE(GetScrollBarInfo(edit, OBJID_VSCROLL, &bar));
  RECT outer{};
  GetWindowRect(edit, &outer);
  const int middle = (bar.rcScrollBar.left + bar.rcScrollBar.right) / 2 - outer.left;
  std::set<uint32_t> colours;
  for (int y = 10; y < 50; ++y) colours.insert(pixel(edit, middle, y));
  EXPECT_GT(colours.size(), 1U);
}

TEST_F(SettingsSubclassTest, AScrollBarInUseIsPaintedAnewWithTheFrame) {
  const HWND edit = addEdit({200, 60}, ES_MULTILINE | ES_READONLY | WS_VSCROLL);
  SetWindowTextW(edit, L"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8");
  SCROLLBARINFO bar{};
  bar.cbSize = sizeof bar;
  ASSERT_TRUE(GetScrollBarInfo(edit, OBJID_VSCROLL, &bar));
  RECT outer{};
  GetWindowRect(edit, &outer);
  const int middle = (bar.rcScrollBar.left + bar.rcScrollBar.right) / 2 - outer.left;
  UpdateWindow(edit);
  const HDC dc = GetWindowDC(edit);
  SetPixel(dc, middle, 30, systemColour(kAlien));
  ReleaseDC(edit, dc);
  ASSERT_EQ(pixel(edit, middle, 30), kAlien);
  set(edit, kHoverProperty);
  EXPECT_NE(pixel(edit, middle, 30), kAlien);
}

struct Seen {
  int id;
  DWORD style;
  const wchar_t* property;
  uint32_t colour;  // 12 pixels from the left, vertically centred
};
class ButtonOnScreenTest : public SettingsSubclassTest, public testing::WithParamInterface<Seen> {};

TEST_P(ButtonOnScreenTest, IsPaintedByItsIdAndItsProperties) {
  const HWND button = addButton(GetParam().id, GetParam().style);
  if (GetParam().property) set(button, GetParam().property);
  EXPECT_EQ(pixel(button, 12, 20), GetParam().colour);
}

INSTANTIATE_TEST_SUITE_P(Table, ButtonOnScreenTest,
                         testing::Values(Seen{kCloseButton, 0, nullptr, kWhite},
                                         Seen{kCloseButton, 0, L"Marlune.Hover", 0xF5F8FD},
                                         Seen{kCloseButton, WS_DISABLED, nullptr, 0xF5F7FA},
                                         Seen{kToggleButton, 0, nullptr, 0x0D806A},
                                         Seen{kToggleButton, 0, L"Marlune.Active", 0xFFFAF0},
                                         Seen{kServiceButton, 0, nullptr, kAccent},
                                         Seen{kServiceButton, 0, L"Marlune.Active", 0xFFF8F8},
                                         Seen{kFirstSection, 0, nullptr, kSelectFill},
                                         Seen{kFirstSection + 1, 0, L"Marlune.Hover", 0xF3F6FB}));

TEST_F(SettingsSubclassTest, APressedButtonAndACheckedSwitchLookIt) {
  const HWND button = addButton(kApplyPortButton);
  SendMessageW(button, BM_SETSTATE, TRUE, 0);
  EXPECT_EQ(pixel(button, 12, 20), kAccentDown);
  const HWND check = addButton(kBlinkCheck, BS_AUTOCHECKBOX);
  EXPECT_EQ(pixel(check, 90, 20), 0xD7DFEBU);
  SendMessageW(check, BM_SETCHECK, BST_CHECKED, 0);
  EXPECT_EQ(pixel(check, 70, 20), kAccent);
}

TEST_F(SettingsSubclassTest, AColourPickerShowsWhatTheBoxBesideItHolds) {
  add(L"EDIT", kBackgroundBox, {100, 38}, 0, L"#0080FF");
  const HWND picker = add(L"BUTTON", kPickBackgroundButton, {42, 40});
  EXPECT_EQ(pixel(picker, 21, 20), 0x0080FFU);
}

TEST_F(SettingsSubclassTest, RowsAreMeasuredByTheirKind) {
  MEASUREITEMSTRUCT item{};
  item.CtlType = ODT_LISTBOX;
  item.CtlID = kFileList;
  EXPECT_TRUE(look.measureItem(item));
  EXPECT_EQ(item.itemHeight, 54U);
  item.CtlType = ODT_COMBOBOX;
  item.CtlID = kShapeCombo;
  EXPECT_TRUE(look.measureItem(item));
  EXPECT_EQ(item.itemHeight, 32U);
  item.CtlType = ODT_MENU;
  EXPECT_FALSE(look.measureItem(item));
}

TEST_F(SettingsSubclassTest, ColoursAreAnsweredWithTheMatchingBrush) {
  const auto brushColour = [&](UINT message, HWND control, HDC dc) {
    LOGBRUSH brush{};
    GetObjectW(look.controlColours(message, dc, control), sizeof brush, &brush);
    return brush.lbColor;
  };
  const HWND edit = addEdit({100, 38}, ES_READONLY);
  const HWND status = add(L"STATIC", kStatusText, {100, 34});
  const HDC dc = GetDC(parent);
  EXPECT_EQ(brushColour(WM_CTLCOLORSTATIC, edit, dc), systemColour(kReadOnlyFill));
  EXPECT_EQ(GetBkColor(dc), systemColour(kReadOnlyFill));
  EXPECT_EQ(GetTextColor(dc), systemColour(kInk));
  EXPECT_EQ(brushColour(WM_CTLCOLORSCROLLBAR, edit, dc), systemColour(kPageFill));
  form.settingsDirty = true;
  EXPECT_EQ(brushColour(WM_CTLCOLORSTATIC, status, dc), systemColour(kWhite));
  EXPECT_EQ(GetTextColor(dc), systemColour(kWarnText));
  EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
  ReleaseDC(parent, dc);
}

TEST_F(SettingsSubclassTest, AListWithTheKeyboardShowsIt) {
  const HWND list = add(L"LISTBOX", kFileList, {300, 100},
                        LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT);
  adoptFileList(list, look);
  const auto markedPixels = [&] {
    int count = 0;
    for (int x = 10; x < 290; ++x) count += pixel(list, x, 2) != kWhite;
    return count;
  };
  EXPECT_EQ(markedPixels(), 0);
  SetFocus(list);
  EXPECT_GT(markedPixels(), 50);
  SetFocus(parent);
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(SettingsSubclassTest, ARowWithTheKeyboardShowsItUnlessItIsSelected) {
  const HWND list = add(L"LISTBOX", kFileList, {300, 100}, LBS_OWNERDRAWFIXED | LBS_HASSTRINGS);
  SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"[正常计时] a"));
  const HDC dc = GetDC(list);
  DRAWITEMSTRUCT item{};
  item.CtlType = ODT_LISTBOX;
  item.CtlID = kFileList;
  item.hwndItem = list;
  item.hDC = dc;
  item.rcItem = {0, 0, 300, 54};
  const auto markedPixels = [&](UINT state) {
    item.itemState = state;
    EXPECT_TRUE(look.drawItem(item));
    int count = 0;
    for (int x = 10; x < 290; ++x) count += GetPixel(dc, x, 2) != GetPixel(dc, x, 0);
    return count;
  };
  EXPECT_EQ(markedPixels(0), 0);
  EXPECT_GT(markedPixels(ODS_FOCUS), 50);
  EXPECT_EQ(markedPixels(ODS_FOCUS | ODS_SELECTED), 0);
  ReleaseDC(list, dc);
}

TEST_F(SettingsSubclassTest, AListWithoutRowsSaysSoAndOneWithRowsDoesNot) {
  const HWND list = add(L"LISTBOX", kFileList, {300, 100},
                        LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT);
  adoptFileList(list, look);
  InvalidateRect(list, nullptr, FALSE);
  const auto inked = [&] {
    int count = 0;
    for (int x = 20; x < 280; ++x) count += pixel(list, x, 37) != kWhite;
    return count;
  };
  EXPECT_GT(inked(), 0);
  SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"[正常计时] a"));
  InvalidateRect(list, nullptr, TRUE);
  EXPECT_EQ(inked(), 0);
}

}  // namespace
}  // namespace mrl
