// The least that is a settings window with the same controls at the same places: the system's own
// ones, which nothing paints, fills or listens to. Runs in a process of its own, as the program
// does.
#pragma once

#include <windows.h>

namespace mrl {

inline constexpr wchar_t kBareHostClass[] = L"MarluneBenchmark.Host";

// Messages to the window of that class; each returns when it is done.
inline constexpr UINT kBareOpen = WM_APP;      // lParam: the size of the window, as in WM_SIZE
inline constexpr UINT kBareTurn = WM_APP + 1;  // wParam: to this page
inline constexpr UINT kBareClose = WM_APP + 2;

/// Runs until the process is ended.
int runBareSettings();

}  // namespace mrl
