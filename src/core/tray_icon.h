// Keeps the tray icon present and handles clicks on it. UI thread.
#pragma once

#include <cstdint>

#include "core/app.h"

namespace mrl {

/// Adds the icon. Retries every 5 s until it succeeds: at logon the program may start before the
/// shell.
void addTrayIcon(App& app);

/// LoopTimer::TrayRetry has fired.
void retryTrayIcon(App& app);

/// The shell has announced itself; it may be a new one without our icon.
void onShellStarted(App& app);

void removeTrayIcon(App& app);

/// A mouse message of the icon; `message` is the Windows message number.
void onTrayMouse(App& app, uint32_t message);

}  // namespace mrl
