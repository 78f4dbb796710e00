// Forwards each call to the Windows API.
#include "presentation/window_system_win.h"

#include <windows.h>

#include <memory>

#include "base/geometry_win.h"
#include "base/kernel_handle_win.h"
#include "base/wide_win.h"

namespace mrl {
namespace {

constexpr int kImageNameRoom = 32768;
constexpr int kTitleRoom = 2048;
constexpr int kClassNameRoom = 256;

BOOL CALLBACK addWindow(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<WindowHandle>*>(list)->push_back(handleFrom(window));
  return TRUE;
}

}  // namespace

std::vector<WindowHandle> WindowSystemWin::topLevelWindows() {
  std::vector<WindowHandle> list;
  EnumWindows(addWindow, reinterpret_cast<LPARAM>(&list));
  return list;
}

std::vector<WindowHandle> WindowSystemWin::windowsInside(WindowHandle window) {
  std::vector<WindowHandle> list;
  // A null handle would list the desktop's windows.
  if (window) EnumChildWindows(windowFrom(window), addWindow, reinterpret_cast<LPARAM>(&list));
  return list;
}

bool WindowSystemWin::isVisible(WindowHandle window) { return IsWindowVisible(windowFrom(window)); }

bool WindowSystemWin::isIconic(WindowHandle window) { return IsIconic(windowFrom(window)); }

std::u16string WindowSystemWin::imageName(WindowHandle window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(windowFrom(window), &processId);
  const KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
  const auto name = std::make_unique_for_overwrite<wchar_t[]>(kImageNameRoom);
  DWORD length = kImageNameRoom;
  if (!process || !QueryFullProcessImageNameW(process.get(), 0, name.get(), &length)) return {};
  return u16From({name.get(), length});
}

std::u16string WindowSystemWin::title(WindowHandle window) {
  wchar_t text[kTitleRoom];
  return u16From({text, static_cast<size_t>(GetWindowTextW(windowFrom(window), text, kTitleRoom))});
}

std::u16string WindowSystemWin::className(WindowHandle window) {
  wchar_t text[kClassNameRoom];
  return u16From(
      {text, static_cast<size_t>(GetClassNameW(windowFrom(window), text, kClassNameRoom))});
}

Rect WindowSystemWin::rect(WindowHandle window) {
  RECT rect = {};
  GetWindowRect(windowFrom(window), &rect);
  return rectFrom(rect);
}

Rect WindowSystemWin::monitorRect(WindowHandle window) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromWindow(windowFrom(window), MONITOR_DEFAULTTONEAREST), &info);
  return rectFrom(info.rcMonitor);
}

bool WindowSystemWin::isWindow(WindowHandle window) { return IsWindow(windowFrom(window)); }

WindowHandle WindowSystemWin::foreground() { return handleFrom(GetForegroundWindow()); }

void WindowSystemWin::setForeground(WindowHandle window) {
  SetForegroundWindow(windowFrom(window));
}

void WindowSystemWin::restore(WindowHandle window) { ShowWindow(windowFrom(window), SW_RESTORE); }

void WindowSystemWin::show(WindowHandle window) { ShowWindow(windowFrom(window), SW_SHOW); }

void WindowSystemWin::setTopmost(WindowHandle window, bool topmost) {
  SetWindowPos(windowFrom(window), topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
               SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
}

void WindowSystemWin::bringToTop(WindowHandle window) { BringWindowToTop(windowFrom(window)); }

size_t WindowSystemWin::sendKeys(const std::vector<KeyEvent>& events) {
  std::vector<INPUT> inputs(events.size());  // all zero
  for (size_t index = 0; index < events.size(); ++index) {
    inputs[index].type = INPUT_KEYBOARD;
    inputs[index].ki.wVk = events[index].virtualKey;
    inputs[index].ki.dwFlags = events[index].up ? KEYEVENTF_KEYUP : 0;
  }
  return SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace mrl
