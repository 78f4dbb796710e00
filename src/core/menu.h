// The menu of the clock, of its tray icon and of the black screen. UI thread.
#pragma once

#include <vector>

#include "core/app.h"

namespace mrl {

/// What the menu of `window` holds now.
std::vector<MenuItem> menuItems(const App& app, WindowHandle window);

/// Opens it at `point` and runs what is chosen.
void showMenu(App& app, WindowHandle window, Point point);

/// The user asks for the menu; an x of -1 means by the keyboard, and the menu then opens at the
/// cursor.
void onContextMenu(App& app, WindowHandle window, Point point);

}  // namespace mrl
