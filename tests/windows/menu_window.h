// An open menu of another process, found by its window.
#pragma once

#include <windows.h>

namespace mrl {

/// The menu that is open on the thread of `window`; null when there is none.
HWND menuOf(HWND window);
RECT menuRect(HWND window);

}  // namespace mrl
