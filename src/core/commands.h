// Runs the commands that a user gives outside the settings window.
#pragma once

#include "base/command_ids.h"
#include "core/app.h"

namespace mrl {

/// Runs a command. An unknown id only repaints the clock. UI thread.
void runCommand(App& app, int command);

/// Handles a key on the clock. Returns true if the key was used.
bool onClockKey(App& app, int virtualKey);

}  // namespace mrl
