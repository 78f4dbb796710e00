#include "windows/menu_window.h"

#include "windows/top_windows.h"

namespace mrl {

HWND menuOf(HWND window) {
  return visibleTopWindow(L"#32768", GetWindowThreadProcessId(window, nullptr));
}

RECT menuRect(HWND window) {
  RECT rect{};
  GetWindowRect(menuOf(window), &rect);
  return rect;
}

}  // namespace mrl
