#include "windows/menu_window.h"

namespace mrl {

HWND menuOf(HWND window) {
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  HWND found = nullptr;
  while ((found = FindWindowExW(nullptr, found, L"#32768", nullptr)) != nullptr) {
    if (IsWindowVisible(found) && GetWindowThreadProcessId(found, nullptr) == thread) return found;
  }
  return nullptr;
}

RECT menuRect(HWND window) {
  RECT rect{};
  GetWindowRect(menuOf(window), &rect);
  return rect;
}

}  // namespace mrl
