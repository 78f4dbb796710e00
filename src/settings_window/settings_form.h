// The state of the settings window's form.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "overlay/clock_geometry.h"
#include "settings/settings.h"
#include "settings_window/qr_code.h"
#include "settings_window/settings_view.h"

namespace mrl {

struct App;

/// A card of the page, in pixels of the pane.
using Cards = std::vector<Rect>;

struct SettingsForm {
  bool isOpen = false;
  Settings settings;  // what the controls show, as far as each can be read; not what gets saved
  std::map<int, uint64_t> pendingEdits;  // control id to the time when its input is due
  bool settingsDirty = false;            // some input has not reached the live record
  bool portDirty = false;                // the port box differs from the live port
  bool controlsSuppressed = false;  // the controls are being filled: their changes mean nothing
  int page = 0;                     // 0 to 4
  int scrollPosition = 0;           // of the page, pixels
  int wheelRemainder = 0;           // of the page, less than one pixel's worth
  Cards cards;
  int previewPhase = 0;                   // 0 to 2
  Point previewScroll;                    // pixels
  std::optional<CornerDrag> previewDrag;  // in progress
  std::vector<std::u16string> filePaths;  // of the list's rows
  QrMatrix qrMatrix;
  CustomColours customColours{};  // these outlive the window
};

/// Puts the live record into the form and its controls, over whatever they showed. Without an open
/// window it does nothing.
void refillForm(App& app);

/// Lists the folder of presentations anew. Without an open window it does nothing.
void reloadFileList(App& app);

}  // namespace mrl
