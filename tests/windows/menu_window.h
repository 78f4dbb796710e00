// Finds the open menu of another process by its window.
#pragma once

#include <windows.h>

namespace mrl {

/// The menu open on the thread of `window`; null if there is none.
HWND menuOf(HWND window);
RECT menuRect(HWND window);

}  // namespace mrl
