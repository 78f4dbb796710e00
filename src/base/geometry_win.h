// Converts points, rectangles, sizes and window handles between Windows and our own types.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "base/window_handle.h"

namespace mrl {

inline Rect rectFrom(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

inline Point pointFrom(const POINT& point) {
  return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

inline Size clientSizeOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

inline int dpiOf(HWND window) { return static_cast<int>(GetDpiForWindow(window)); }

inline WindowHandle handleFrom(HWND window) { return {reinterpret_cast<intptr_t>(window)}; }

inline HWND windowFrom(WindowHandle handle) { return reinterpret_cast<HWND>(handle.value); }

}  // namespace mrl
