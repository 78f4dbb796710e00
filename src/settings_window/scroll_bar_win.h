// A window's own scroll bars; `bar` is SB_HORZ or SB_VERT. UI thread.
#pragma once

#include <windows.h>

#include "settings_window/scroll_bar.h"

namespace mrl {

/// Empty for null.
ScrollInfo scrollInfoOf(HWND window, int bar);
/// Shows the bar if there is something to scroll, else hides it. Does nothing for null.
void setScrollInfoOf(HWND window, int bar, const ScrollInfo& info);

}  // namespace mrl
