#include "windows/settings_screen.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "base/window_classes_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/layout.h"
#include "windows/standin_client.h"
#include "windows/top_windows.h"

namespace mrl {

using standin::waitUntil;

namespace {

BOOL CALLBACK addControl(HWND child, LPARAM controls) {
  reinterpret_cast<std::map<int, HWND>*>(controls)->emplace(GetDlgCtrlID(child), child);
  return TRUE;
}

}  // namespace

std::wstring classOf(HWND window) {
  wchar_t name[64];
  const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return {name, static_cast<size_t>(length)};
}

LRESULT ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR answer = 0;
  const LRESULT arrived =
      SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, 30'000, &answer);
  return arrived == 0 ? 0 : static_cast<LRESULT>(answer);
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  const LRESULT length =
      ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<size_t>(length));
  return text;
}

RECT restingPlaceOf(HWND window) {
  ask(window, WM_NULL);
  RECT rect{};
  GetWindowRect(window, &rect);
  return rect;
}

Rect placeInParent(HWND window) {
  RECT rect = restingPlaceOf(window);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&rect), 2);
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

void SettingsScreen::open(Settings settings) {
  settings.windowX = GetSystemMetrics(SM_CXSCREEN) - scaled(60);
  settings.windowY = scaled(100);
  if (settings.remotePort == Settings().remotePort) settings.remotePort = somePort();
  program.prepare(settings);
  openAsItIs();
}

void SettingsScreen::openAsItIs() {
  ASSERT_TRUE(program.start(L"", Program::Opening::Kept));
  ASSERT_TRUE(waitUntil([&] { return GetForegroundWindow() == window(); }, 30'000));
}

int SettingsScreen::settingsWindows() const {
  const DWORD thread = GetWindowThreadProcessId(program.clock(), nullptr);
  return static_cast<int>(std::ranges::count_if(topWindows(kSettingsClass), [&](HWND each) {
    return GetWindowThreadProcessId(each, nullptr) == thread;
  }));
}

HWND SettingsScreen::control(int id) const {
  const auto known = controls.find(id);
  if (known != controls.end() && GetDlgCtrlID(known->second) == id) return known->second;
  controls.clear();
  EnumChildWindows(window(), addControl, reinterpret_cast<LPARAM>(&controls));
  return controls[id];
}

bool SettingsScreen::isVisible(int id) const {
  return (GetWindowLongW(control(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool SettingsScreen::isMarked(int id, const wchar_t* property) const {
  return GetPropW(control(id), property) != nullptr;
}

int SettingsScreen::focusedId() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (!GetGUIThreadInfo(GetWindowThreadProcessId(window(), nullptr), &info)) return 0;
  return IsChild(window(), info.hwndFocus) ? GetDlgCtrlID(info.hwndFocus) : 0;
}

int SettingsScreen::page() const { return static_cast<int>(ask(control(kTabs), TCM_GETCURSEL)); }

int SettingsScreen::scrollPosition() const {
  const PageLayout unscrolled = layOut(clientSize(), dpi(), page(), 0);
  const Placement& title = unscrolled.page.front();
  return title.rect.top - rect(title.id).top;
}

Picture SettingsScreen::settledShot() const {
  moveTo({0, 0});
  RECT place{};
  GetWindowRect(window(), &place);
  return settledPictureOf(place);
}

Size SettingsScreen::clientSize() const {
  RECT client{};
  GetClientRect(window(), &client);
  return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

POINT SettingsScreen::middleOf(int id) const {
  const RECT rect = restingPlaceOf(control(id));
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool SettingsScreen::showsOnly(int index) const {
  for (const Control& row : allControls()) {
    if (isOnPane(row) && isVisible(row.id) != (row.page == index)) return false;
  }
  return true;
}

bool SettingsScreen::openPage(int index) const {
  const int section = kFirstSection + index;
  click(section);
  // The focus tells that the click has arrived, where the page was open before.
  return waitUntil([&] { return focusedId() == section && page() == index && showsOnly(index); },
                   30'000);
}

void SettingsScreen::resize(Size outer) const {
  SetWindowPos(window(), nullptr, 0, 0, outer.width, outer.height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace mrl
