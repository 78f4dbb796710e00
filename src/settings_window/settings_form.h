// The state of the settings window's form.
#pragma once

#include <cstdint>
#include <map>

#include "settings/settings.h"

namespace mrl {

struct App;

struct SettingsForm {
  bool isOpen = false;
  Settings settings;  // what the controls show, as far as each can be read; not what gets saved
  std::map<int, uint64_t> pendingEdits;  // control id to the time when its input is due
  bool settingsDirty = false;            // some input has not reached the live record
  bool portDirty = false;                // the port box differs from the live port
  bool controlsSuppressed = false;  // the controls are being filled: their changes mean nothing
  int page = 0;                     // 0 to 4
  int previewPhase = 0;             // 0 to 2
};

/// Puts the live record into the form and its controls, over whatever they showed. Without an open
/// window it does nothing.
void refillForm(App& app);

/// Lists the folder of presentations anew. Without an open window it does nothing.
void reloadFileList(App& app);

}  // namespace mrl
