// The menu of the clock, of its tray icon and of the black screen. UI thread.
#pragma once

#include <vector>

#include "core/app.h"

namespace mrl {

/// The current items of the menu of `window`.
std::vector<MenuItem> menuItems(const App& app, WindowHandle window);

/// Opens the menu at `point` and runs the chosen command.
void showMenu(App& app, WindowHandle window, Point point);

/// The user requested the menu; an x of -1 means by keyboard, and the menu opens at the cursor.
void onContextMenu(App& app, WindowHandle window, Point point);

}  // namespace mrl
