#include "settings_window/commands.h"

#include <algorithm>

#include "base/text.h"
#include "core/commands.h"
#include "overlay/clock_geometry.h"
#include "settings_window/auto_apply.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/field_values.h"
#include "settings_window/form_sync.h"
#include "settings_window/network_check.h"
#include "settings_window/presentation_page.h"
#include "settings_window/preview.h"
#include "settings_window/remote_page.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

enum class Picker { Folder, Presentation, Audio };
struct PickButton {
  int id;
  Picker kind;
  int box;
};
constexpr PickButton kPickButtons[] = {
    {kPickFolderButton, Picker::Folder, kFolderBox},
    {kPickDeckButton, Picker::Presentation, kSwitchDeckBox},
    {kPickSoundButton, Picker::Audio, kSoundFileBox},
    {kFirstStage + kStagePickSound, Picker::Audio, kFirstStage + kStageSoundFile},
    {kSecondStage + kStagePickSound, Picker::Audio, kSecondStage + kStageSoundFile},
};

std::u16string pickPath(SettingsDialogs& dialogs, Picker kind) {
  switch (kind) {
    case Picker::Folder: return dialogs.pickFolder();
    case Picker::Presentation: return dialogs.pickFile(FileFilter::Presentation);
    case Picker::Audio: break;
  }
  return dialogs.pickFile(FileFilter::Audio);
}

void pickPath(App& app, const PickButton& button) {
  const std::u16string path = pickPath(app.platform.settingsDialogs, button.kind);
  if (path.empty() || !app.form.isOpen) return;
  // Notifies as typing does, which queues the edit.
  app.platform.settingsView.setText(button.box, path);
}

void pickColour(App& app, int box) {
  SettingsDialogs& dialogs = app.platform.settingsDialogs;
  uint32_t colour = findField(box)->number().in(app.form.settings);
  if (!dialogs.pickColour(colour, app.form.customColours) || !app.form.isOpen) return;
  app.platform.settingsView.setText(box, colourText(colour));  // queues the edit
  applyPending(app, true);
}

void resetSize(App& app) {
  SettingsView& view = app.platform.settingsView;
  view.setText(kWidthBox, decimal(kDefaultClockUnits.width));  // queues the edit
  view.setText(kHeightBox, decimal(kDefaultClockUnits.height));
  applyPending(app, true);
}

bool onPickButton(App& app, int id) {
  const auto* path = std::ranges::find(kPickButtons, id, &PickButton::id);
  if (path != std::end(kPickButtons)) {
    pickPath(app, *path);
    return true;
  }
  const auto colourBox = colourBoxOf(id);
  if (colourBox) pickColour(app, *colourBox);
  return colourBox.has_value();
}

/// Clicks and key commands that do something other than edit a field. False for the rest.
bool onClick(App& app, int id) {
  if (id >= kFirstSection && id < kFirstSection + kPageCount) {
    selectPage(app, id - kFirstSection);
    return true;
  }
  switch (id) {
    case kEscapeKey:
    case kCloseButton: closeSettingsWindow(app); return true;
    case kEnterKey: applyPending(app, true); return true;
    case kApplyAll:
      applyPending(app, true);
      refreshEnableStates(app);
      return true;
    case kToggleButton: runCommand(app, kCommandToggleTimer); return true;
    case kResetButton: runCommand(app, kCommandReset); return true;
    case kOpenRemoteButton: runCommand(app, kCommandOpenRemote); return true;
    case kDefaultSizeButton: resetSize(app); return true;
    case kServiceButton: toggleRemote(app); return true;
    case kCopyAddressButton: copyRemoteAddress(app); return true;
    case kApplyPortButton: applyPort(app); return true;
    case kCheckNetworkButton: checkAndRepairNetwork(app); return true;
    case kToggleExclusion: toggleSelectedExclusion(app); return true;
    default: return onPickButton(app, id) || onPresentationButton(app, id);
  }
}

void selectMode(App& app) {
  const bool automatic = app.platform.settingsView.row(kModeCombo) == 0;
  runCommand(app, automatic ? kCommandAutoMode : kCommandManualMode);
  showChangedMode(app);  // shows the old mode again if the save failed
}

/// Selections in a list or a combo that edit no field. False for the rest.
bool onSelection(App& app, int id) {
  switch (id) {
    case kModeCombo: selectMode(app); return true;
    case kPreviewPhaseCombo:
      app.form.previewPhase = app.platform.settingsView.row(id);
      refreshPreview(app);
      return true;
    case kFileList: refreshEnableStates(app); return true;
    default: return false;
  }
}

void onFocusLost(App& app, int id) {
  SettingsView& view = app.platform.settingsView;
  const Control* control = findControl(id);
  if (control && control->kind == ControlKind::NumberBox && view.text(id).empty()) {
    view.setText(id, u"0");
  }
  applyPending(app, true);
}

void onInput(App& app, int id, bool immediate) {
  syncForm(app);
  if (id == kFolderBox) reloadFileList(app);
  refreshPreview(app);
  markEdited(app, id, immediate);
}

}  // namespace

bool onSettingsCommand(App& app, int id, int notification) {
  if (!app.form.isOpen || app.form.controlsSuppressed) return true;
  switch (notification) {
    case kTextChanged:
      clearInvalid(app, id);
      onInput(app, id, false);
      return true;
    case kFocusLost: onFocusLost(app, id); return true;
    case kClicked:
      if (!onClick(app, id)) onInput(app, id, true);
      return true;
    case kSelectionChanged:
      if (!onSelection(app, id)) onInput(app, id, true);
      return true;
    case kDoubleClicked: return id == kFileList && onPresentationButton(app, kOpenFileButton);
    default: return false;
  }
}

}  // namespace mrl
