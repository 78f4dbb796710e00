// The numbered commands: all that a user can ask of the timer outside the settings window.
#pragma once

#include "core/app.h"

namespace mrl {

enum Command : int {
  kCommandToggleTimer = 100,
  kCommandReset = 101,
  kCommandOpenSettings = 102,
  kCommandToggleResizeMode = 103,
  kCommandDefaultSize = 104,
  kCommandToggleVisibility = 105,
  kCommandToggleBlack = 106,
  kCommandExit = 107,
  kCommandShowClock = 108,
  kCommandHideClock = 109,
  kCommandManualMode = 112,
  kCommandAutoMode = 113,
  kCommandPauseOrResume = 114,
};

/// Runs a command; a number that is none only repaints the clock. UI thread.
void runCommand(App& app, int command);

/// A key on the clock, or on a black window. True when it meant something.
bool onClockKey(App& app, int virtualKey);
bool onBlackKey(App& app, int virtualKey);

}  // namespace mrl
