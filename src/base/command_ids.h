// The command ids: everything that a user can trigger outside the settings window. Menus, keys and
// buttons send these numbers.
#pragma once

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
  kCommandOpenRemote = 110,
  kCommandRefreshRemote = 111,
  kCommandManualMode = 112,
  kCommandAutoMode = 113,
  kCommandPauseOrResume = 114,
};

}  // namespace mrl
