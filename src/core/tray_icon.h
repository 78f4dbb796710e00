// When the tray icon is there, and what a click on it does. UI thread.
#pragma once

#include <cstdint>

#include "core/app.h"

namespace mrl {

/// Adds the icon. Where that fails, the program may have started before the shell: it is then tried
/// again until it works.
void addTrayIcon(App& app);

/// The timer for that has fired.
void retryTrayIcon(App& app);

/// A new shell runs, and knows of no icon.
void onShellStarted(App& app);

void removeTrayIcon(App& app);

/// The mouse on the icon; `message` is Windows' number.
void onTrayMouse(App& app, uint32_t message);

}  // namespace mrl
