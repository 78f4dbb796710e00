// A snapshot of the desktop's windows. Walking from one window to the next instead would stop early
// if any program closes a window meanwhile.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace mrl {

/// All windows of that class, hidden ones included, topmost first.
std::vector<HWND> topWindows(const std::wstring& className);
/// The topmost visible one that belongs to that thread; null if there is none.
HWND visibleTopWindow(const std::wstring& className, DWORD threadId);

}  // namespace mrl
