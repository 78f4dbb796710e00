// The real settings window: its controls and their order, and how it opens.
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <algorithm>
#include <string_view>

#include "base/command_ids.h"
#include "base/unique_handle.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "http/raw_client_win.h"
#include "resources/resource_ids.h"
#include "settings_window/control_ids.h"
#include "windows/picture.h"
#include "windows/settings_screen.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

/// Expected class and style of a control; the system may change the `changing` bits.
struct Made {
  std::wstring_view className;
  DWORD style = 0;
  DWORD changing = 0;
};

// A scroll bar that isn't needed is hidden, which clears its style bit.
constexpr DWORD kBars = WS_HSCROLL | WS_VSCROLL;

Made madeAs(ControlKind kind) {
  switch (kind) {
    case ControlKind::Tabs: return {L"SysTabControl32", WS_TABSTOP | WS_CLIPSIBLINGS};
    case ControlKind::Section:
    case ControlKind::Button: return {L"Button", BS_PUSHBUTTON | WS_TABSTOP};
    case ControlKind::Check: return {L"Button", BS_AUTOCHECKBOX | WS_TABSTOP};
    // In a group only the checked button is a Tab stop.
    case ControlKind::Radio: return {L"Button", BS_AUTORADIOBUTTON, WS_TABSTOP};
    case ControlKind::Title:
    case ControlKind::Paragraph: return {L"Static"};
    case ControlKind::Caption: return {L"Static", SS_CENTERIMAGE};
    case ControlKind::TimerLine: return {L"Static", SS_ENDELLIPSIS | SS_CENTERIMAGE};
    case ControlKind::StatusLine: return {L"Static", SS_OWNERDRAW};
    case ControlKind::NumberBox: return {L"Edit", ES_NUMBER | ES_AUTOHSCROLL | WS_TABSTOP};
    case ControlKind::TextBox: return {L"Edit", ES_AUTOHSCROLL | WS_TABSTOP};
    case ControlKind::AddressBox:
      return {L"Edit", ES_READONLY | ES_MULTILINE | ES_AUTOHSCROLL | WS_TABSTOP, kBars};
    case ControlKind::Combo:
      return {L"ComboBox", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_TABSTOP,
              kBars};
    case ControlKind::List:
      return {L"ListBox", LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOTIFY | WS_TABSTOP, kBars};
    case ControlKind::PreviewHost: return {kPreviewHostClass, WS_CLIPCHILDREN, kBars};
    case ControlKind::Preview: return {kPreviewClass};
    case ControlKind::QrCode: return {kQrClass};
  }
  return {};
}

/// Controls whose text the program sets at run time.
bool hasTextOfItsOwn(const Control& row) {
  switch (row.id) {
    case kToggleButton:
    case kServiceButton:
    case kExpirySummary:
    case kFileCount:
    case kTimerLine:
    case kStatusText: return false;
    default: return !isEditBox(row.kind) && row.kind != ControlKind::Combo;
  }
}

constexpr uint32_t kSeeThrough = 0xFFFFFFFF;

/// The program's icon, drawn on black and on white: transparent pixels differ.
Picture programIcon(int size) {
  const HMODULE image = LoadLibraryExW((standin::executableFolder() + L"marlune.exe").c_str(),
                                       nullptr, LOAD_LIBRARY_AS_DATAFILE);
  const auto icon = static_cast<HICON>(
      LoadImageW(image, MAKEINTRESOURCEW(MARLUNE_ICON), IMAGE_ICON, size, size, 0));
  const HDC screen = GetDC(nullptr);
  RECT place{0, 0, size, size};
  Picture pictures[2];
  for (const int background : {BLACK_BRUSH, WHITE_BRUSH}) {
    FillRect(screen, &place, static_cast<HBRUSH>(GetStockObject(background)));
    DrawIconEx(screen, 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
    pictures[background == WHITE_BRUSH] = pictureOf(place);
  }
  ReleaseDC(nullptr, screen);
  DestroyIcon(icon);
  FreeLibrary(image);
  for (size_t i = 0; i < pictures[0].pixels.size(); ++i) {
    if (pictures[0].pixels[i] != pictures[1].pixels[i]) pictures[0].pixels[i] = kSeeThrough;
  }
  return pictures[0];
}

bool showsAt(const Picture& picture, const Picture& icon, int left, int top) {
  for (int y = 0; y < icon.size.height; ++y) {
    for (int x = 0; x < icon.size.width; ++x) {
      if (icon.at(x, y) != kSeeThrough && icon.at(x, y) != picture.at(left + x, top + y)) {
        return false;
      }
    }
  }
  return true;
}

/// Whether the icon occurs anywhere in the picture.
bool shows(const Picture& picture, const Picture& icon) {
  for (int y = 0; y + icon.size.height <= picture.size.height; ++y) {
    for (int x = 0; x + icon.size.width <= picture.size.width; ++x) {
      if (showsAt(picture, icon, x, y)) return true;
    }
  }
  return false;
}

class SettingsWindowTest : public SettingsScreen {
 protected:
  HWND parentOf(const Control& row) const {
    if (row.kind == ControlKind::Preview) return control(kPreviewHost);
    return isOnPane(row) ? pane() : window();
  }
  std::vector<int> childrenOf(HWND parent) const {
    std::vector<int> ids;
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      ids.push_back(GetDlgCtrlID(child));
    }
    return ids;
  }
  std::vector<int> expectedChildrenOf(HWND parent) const {
    std::vector<int> ids;
    if (parent == window()) ids.push_back(kContentPane);
    for (const Control& row : allControls()) {
      if (parentOf(row) == parent) ids.push_back(row.id);
    }
    return ids;
  }
  std::vector<std::wstring> rowsOf(int id) const {
    std::vector<std::wstring> rows(static_cast<size_t>(ask(control(id), CB_GETCOUNT)));
    for (size_t i = 0; i < rows.size(); ++i) {
      rows[i].resize(static_cast<size_t>(ask(control(id), CB_GETLBTEXTLEN, i)));
      ask(control(id), CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(rows[i].data()));
    }
    return rows;
  }
  void expectMadeAs(const Control& row) {
    const HWND made = control(row.id);
    const Made expected = madeAs(row.kind);
    EXPECT_EQ(classOf(made), expected.className);
    const DWORD fixed = ~(expected.changing | WS_VISIBLE | WS_DISABLED);
    DWORD style = WS_CHILD | expected.style;
    if (row.startsGroup) style |= WS_GROUP;
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(made, GWL_STYLE)) & fixed, style & fixed);
    EXPECT_EQ(GetWindowLongW(made, GWL_EXSTYLE), 0);
    EXPECT_EQ(GetParent(made), parentOf(row));
    if (hasTextOfItsOwn(row)) {
      EXPECT_EQ(text(row.id), wideFrom(row.text));
    }
  }
};

TEST_F(SettingsWindowTest, EveryControlIsWhatItsRowOfTheTableSays) {
  ASSERT_NO_FATAL_FAILURE(open());
  for (const Control& row : allControls()) {
    SCOPED_TRACE(row.id);
    ASSERT_NE(control(row.id), nullptr);
    expectMadeAs(row);
  }
}

TEST_F(SettingsWindowTest, TheWindowAndItsPaneHaveTheControlsOfTheTableInItsOrderAndNoOther) {
  ASSERT_NO_FATAL_FAILURE(open());
  for (const HWND parent : {window(), pane(), control(kPreviewHost)}) {
    EXPECT_EQ(childrenOf(parent), expectedChildrenOf(parent));
  }
}

TEST_F(SettingsWindowTest, ACombosRowsAreThoseOfTheTable) {
  ASSERT_NO_FATAL_FAILURE(open());
  for (const Control& row : allControls()) {
    if (row.kind != ControlKind::Combo) continue;
    std::vector<std::wstring> expected;
    for (const char16_t* const text : row.rows) expected.push_back(wideFrom(text));
    EXPECT_EQ(rowsOf(row.id), expected) << row.id;
  }
  EXPECT_EQ(ask(control(kTabs), TCM_GETITEMCOUNT), kPageCount);
}

TEST_F(SettingsWindowTest, TheWindowIsOneOfTheDesktopAndThePaneScrolls) {
  ASSERT_NO_FATAL_FAILURE(open());
  EXPECT_EQ(classOf(window()), kSettingsClass);
  EXPECT_EQ(textOf(window()), L"Marlune 设置");
  EXPECT_EQ(GetWindow(window(), GW_OWNER), nullptr);
  constexpr DWORD kWindowStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE;
  EXPECT_EQ(GetWindowLongW(window(), GWL_STYLE) & kWindowStyle, kWindowStyle);
  EXPECT_TRUE(GetWindowLongW(window(), GWL_EXSTYLE) & WS_EX_CONTROLPARENT);
  constexpr DWORD kPaneStyle = WS_CHILD | WS_CLIPCHILDREN | WS_VISIBLE | WS_VSCROLL;
  EXPECT_EQ(GetWindowLongW(pane(), GWL_STYLE) & kPaneStyle, kPaneStyle);
  constexpr DWORD kPaneExtended = WS_EX_COMPOSITED | WS_EX_CONTROLPARENT;
  EXPECT_EQ(GetWindowLongW(pane(), GWL_EXSTYLE) & kPaneExtended, kPaneExtended);
}

TEST_F(SettingsWindowTest, TheTitleBarShowsTheProgramsIcon) {
  ASSERT_NO_FATAL_FAILURE(open());
  const Picture icon = programIcon(scaled(16));
  RECT place{};
  GetWindowRect(window(), &place);
  EXPECT_TRUE(waitUntil([&] {
    return shows(
        pictureOf({place.left, place.top, place.left + scaled(40), place.top + scaled(40)}), icon);
  }));
}

TEST_F(SettingsWindowTest, AClickOnASectionShowsItsPageAlone) {
  ASSERT_NO_FATAL_FAILURE(open());
  EXPECT_EQ(page(), 0);
  EXPECT_TRUE(showsOnly(0));
  for (const int index : {1, 2, 3, 4, 0}) {
    ASSERT_TRUE(openPage(index)) << index;
    for (const Control& row : allControls()) {
      if (isOnPane(row)) continue;
      EXPECT_EQ(isVisible(row.id), row.page == kEveryPage) << row.id;
    }
  }
}

TEST_F(SettingsWindowTest, EveryStartOpensItInFrontOfAllInTheMiddleOfTheScreen) {
  ASSERT_NO_FATAL_FAILURE(open());
  EXPECT_EQ(GetForegroundWindow(), window());
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  RECT place{};
  GetWindowRect(window(), &place);
  const LONG width = std::min<LONG>(area.right - area.left - scaled(24), scaled(1040));
  const LONG height = std::min<LONG>(area.bottom - area.top - scaled(24), scaled(740));
  EXPECT_EQ(place.right - place.left, width);
  EXPECT_EQ(place.bottom - place.top, height);
  EXPECT_EQ(place.left, area.left + (area.right - area.left - width) / 2);
  EXPECT_EQ(place.top, area.top + (area.bottom - area.top - height) / 2);
}

TEST_F(SettingsWindowTest, ASecondCommandRaisesTheOneWindowAndLeavesItsForm) {
  ASSERT_NO_FATAL_FAILURE(open());
  const HWND first = window();
  ASSERT_TRUE(openPage(2));
  SetForegroundWindow(program.clock());
  ASSERT_TRUE(waitUntil([&] { return GetForegroundWindow() != first; }));
  program.command(kCommandOpenSettings);
  EXPECT_TRUE(waitUntil([&] { return GetForegroundWindow() == first; }));
  EXPECT_EQ(page(), 2);
  EXPECT_EQ(settingsWindows(), 1);
}

TEST_F(SettingsWindowTest, TheCommandRestoresAMinimisedWindow) {
  ASSERT_NO_FATAL_FAILURE(open());
  const HWND first = window();
  ShowWindow(first, SW_MINIMIZE);
  ASSERT_TRUE(waitUntil([&] { return IsIconic(first); }));
  program.command(kCommandOpenSettings);
  EXPECT_TRUE(waitUntil([&] { return !IsIconic(first) && GetForegroundWindow() == first; }));
  EXPECT_EQ(settingsWindows(), 1);
}

TEST_F(SettingsWindowTest, AReopenedWindowBeginsAnew) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_TRUE(openPage(1));
  ask(pane(), WM_VSCROLL, SB_BOTTOM);
  ASSERT_GT(scrollPosition(), 0);
  click(kCloseButton);
  ASSERT_TRUE(waitUntil([&] { return settingsWindows() == 0; }));
  program.command(kCommandOpenSettings);
  ASSERT_NE(window(), nullptr);
  EXPECT_EQ(page(), 0);
  EXPECT_TRUE(showsOnly(0));
  EXPECT_EQ(scrollPosition(), 0);
}

TEST_F(SettingsWindowTest, NothingThatChangesInItTakesTheForeground) {
  ASSERT_NO_FATAL_FAILURE(open());
  const HWND other = CreateWindowW(L"Static", L"other", WS_POPUP | WS_VISIBLE, 0, 0, 40, 40,
                                   nullptr, nullptr, nullptr, nullptr);
  SetForegroundWindow(other);
  ASSERT_TRUE(waitUntil([&] { return GetForegroundWindow() == other; }));
  ask(window(), WM_COMMAND, kFirstSection + 3);
  ASSERT_EQ(page(), 3);
  resize({scaled(950), scaled(650)});
  program.command(kCommandToggleTimer);
  EXPECT_TRUE(program.isCounting());
  EXPECT_EQ(GetForegroundWindow(), other);
  DestroyWindow(other);
}

TEST_F(SettingsWindowTest, ItGetsNoSmallerThanItsSmallestSize) {
  ASSERT_NO_FATAL_FAILURE(open());
  resize({scaled(300), scaled(200)});
  RECT place{};
  GetWindowRect(window(), &place);
  EXPECT_EQ(place.right - place.left, scaled(900));
  EXPECT_EQ(place.bottom - place.top, scaled(620));
}

TEST_F(SettingsWindowTest, TheStatusLineBeginsWithHowSettingsTakeEffect) {
  Settings settings;
  settings.remoteAutoStart = false;
  ASSERT_NO_FATAL_FAILURE(open(settings));
  EXPECT_EQ(text(kStatusText), L"设置自动生效");
}

TEST_F(SettingsWindowTest, ASettingsFileThatCouldNotBeReadIsTheFirstThingItSays) {
  program.prepareBytes("no settings at all");
  ASSERT_NO_FATAL_FAILURE(openAsItIs());
  EXPECT_FALSE(text(kStatusText).empty());
  EXPECT_NE(text(kStatusText), L"设置自动生效");
  EXPECT_EQ(program.settingsBytes(), "no settings at all") << "and it is left alone";
}

TEST_F(SettingsWindowTest, WhatIsWrongWithTheFileIsNotHiddenByAServiceThatCannotStart) {
  const Winsock winsock;
  const UniqueHandle<ClientTraits> taken(socket(AF_INET, SOCK_STREAM, 0));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(22222);
  ASSERT_TRUE(standin::waitUntil([&] {
    return bind(taken.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  })) << "another test's program has it for as long as it runs";
  ASSERT_EQ(listen(taken.get(), 1), 0);
  program.prepareBytes("no settings at all");
  ASSERT_NO_FATAL_FAILURE(openAsItIs());
  EXPECT_EQ(text(kStatusText),
            L"配置格式无效，已使用默认值；原文件未覆盖。\n"
            L"遥控端口 22222 无法监听，请检查网络或更换端口。");
}

TEST_F(SettingsWindowTest, TheProgramEndsWithItOpen) {
  ASSERT_NO_FATAL_FAILURE(open());
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  DWORD exitCode = 99;
  ASSERT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(exitCode, 0u);
}

}  // namespace
}  // namespace mrl
