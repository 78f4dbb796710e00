// Carries out what a user asks of the timer outside the settings window.
#pragma once

#include "base/command_ids.h"
#include "core/app.h"

namespace mrl {

/// Runs a command; a number that is none only repaints the clock. UI thread.
void runCommand(App& app, int command);

/// A key on the clock. True when it meant something.
bool onClockKey(App& app, int virtualKey);

}  // namespace mrl
