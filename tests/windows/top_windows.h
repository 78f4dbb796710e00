// The windows of the desktop, as they stood at one moment. A walk from one window to the next ends
// too early where a window goes away meanwhile, and any program's may.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace mrl {

/// All of that class, hidden ones too, from the top one down.
std::vector<HWND> topWindows(const std::wstring& className);
/// The upper one that is visible and belongs to that thread; null when there is none.
HWND visibleTopWindow(const std::wstring& className, DWORD threadId);

}  // namespace mrl
