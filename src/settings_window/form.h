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
#include "settings_window/dialogs.h"
#include "settings_window/qr_code.h"

namespace mrl {

struct App;

/// A card of the page, in pixels of the pane.
using Cards = std::vector<Rect>;

struct SettingsForm {
  bool isOpen = false;
  Settings settings;  // as the controls show it, where they parse; only skipList is saved from here
  std::map<int, uint64_t> pendingEdits;  // by queuedId(): the due time, or kNotDue
  bool settingsDirty = false;            // an edit is queued or portDirty
  bool portDirty = false;                // the typed port differs from the live one
  bool controlsSuppressed = false;       // notifications are ignored, as while controls are filled
  int page = 0;                          // 0 to 4
  int scrollPosition = 0;                // of the page, pixels
  int wheelRemainder = 0;                // of the page, 1/120 pixels, less than one pixel
  Cards cards;
  int previewPhase = 0;                   // 0 to 2
  Point previewScroll;                    // pixels
  std::optional<CornerDrag> previewDrag;  // while one is in progress
  std::vector<std::u16string> filePaths;  // by row of the list
  QrMatrix qrMatrix;
  CustomColours customColours{};  // kept when the window closes
};

/// Copies the live settings into the form's settings and the controls, overwriting what they
/// showed. Does nothing without an open window.
void refillForm(App& app);

/// Reads the folder of presentations again. Does nothing without an open window.
void reloadFileList(App& app);

}  // namespace mrl
