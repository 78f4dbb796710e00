#include "settings_window/form_sync.h"

#include <algorithm>

#include "base/clock_text.h"
#include "base/text.h"
#include "settings_window/control_table.h"
#include "settings_window/field_values.h"
#include "settings_window/preview.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

/// The number in the box, or `present` if it can't be parsed.
uint32_t numberOr(App& app, int id, uint32_t present) {
  return numberFrom(app.platform.settingsView.text(id)).value_or(present);
}

uint32_t readTime(App& app, const Field& field, uint32_t present) {
  const uint32_t minutes = numberOr(app, field.id, present / kSecondsPerMinute);
  const uint32_t seconds = numberOr(app, field.secondsId, present % kSecondsPerMinute);
  return std::min(minutes, kMostMinutes) * kSecondsPerMinute + std::min(seconds, kMostSeconds);
}

void readField(App& app, const Field& field) {
  SettingsView& view = app.platform.settingsView;
  Settings& shown = app.form.settings;
  const int row = std::max(view.row(field.id), 0);
  switch (field.kind) {
    case FieldKind::Flag: field.flag().in(shown) = view.isChecked(field.id); break;
    case FieldKind::DownRadio: field.flag().in(shown) = view.isChecked(kDownRadio); break;
    case FieldKind::Number:
      field.number().in(shown) = numberOr(app, field.id, field.number().in(shown));
      break;
    case FieldKind::Time:
      field.number().in(shown) = readTime(app, field, field.number().in(shown));
      break;
    case FieldKind::Colour:
      field.number().in(shown) =
          colourFromText(view.text(field.id)).value_or(field.number().in(shown));
      break;
    case FieldKind::ShapeRow: field.number().in(shown) = static_cast<uint32_t>(row); break;
    case FieldKind::FontWeight:
      field.number().in(shown) =
          kFontWeights[std::min(static_cast<size_t>(row), std::size(kFontWeights) - 1)];
      break;
    case FieldKind::FontName:
    case FieldKind::Folder:
    case FieldKind::File:
    case FieldKind::StageSound: field.text().in(shown) = view.text(field.id); break;
    case FieldKind::SkipList: break;
  }
}

int weightRow(uint32_t weight) {
  const auto* found = std::ranges::find(kFontWeights, weight);
  return found == std::end(kFontWeights) ? kOtherWeightRow
                                         : static_cast<int>(found - std::begin(kFontWeights));
}

void fillField(App& app, const Field& field) {
  SettingsView& view = app.platform.settingsView;
  const Settings& shown = app.form.settings;
  switch (field.kind) {
    case FieldKind::Flag: view.setChecked(field.id, field.flag().in(shown)); break;
    case FieldKind::DownRadio:
      view.setChecked(field.id, field.flag().in(shown) == (field.id == kDownRadio));
      break;
    case FieldKind::Number: view.setText(field.id, decimal(field.number().in(shown))); break;
    case FieldKind::Time:
      view.setText(field.id, decimal(field.number().in(shown) / kSecondsPerMinute));
      view.setText(field.secondsId, decimal(field.number().in(shown) % kSecondsPerMinute));
      break;
    case FieldKind::Colour: view.setText(field.id, colourText(field.number().in(shown))); break;
    case FieldKind::ShapeRow:
      view.setRow(field.id, static_cast<int>(field.number().in(shown)));
      break;
    case FieldKind::FontWeight: view.setRow(field.id, weightRow(field.number().in(shown))); break;
    case FieldKind::FontName:
    case FieldKind::Folder:
    case FieldKind::File:
    case FieldKind::StageSound: view.setText(field.id, field.text().in(shown)); break;
    case FieldKind::SkipList: break;
  }
}

void fillMode(App& app) {
  app.platform.settingsView.setRow(kModeCombo, app.form.settings.autoMode ? 0 : 1);
}

void enableAll(SettingsView& view, std::initializer_list<int> ids, bool enabled) {
  for (const int id : ids) view.enable(id, enabled);
}

}  // namespace

void syncForm(App& app) {
  for (const Field& field : allFields()) readField(app, field);
}

void fillControls(App& app) {
  {
    const SuppressControls quiet(app);
    for (const Field& field : allFields()) fillField(app, field);
    fillMode(app);
  }
  refreshPreview(app);
}

void fillSizeBoxes(App& app) {
  const SuppressControls quiet(app);
  for (const int id : {kWidthBox, kHeightBox}) fillField(app, *findField(id));
}

void showChangedSize(App& app) {
  if (!app.form.isOpen) return;
  app.form.settings.windowWidth = app.settings.windowWidth;
  app.form.settings.windowHeight = app.settings.windowHeight;
  fillSizeBoxes(app);
  refreshPreview(app);
}

void showChangedMode(App& app) {
  if (!app.form.isOpen) return;
  app.form.settings.autoMode = app.settings.autoMode;
  fillMode(app);
}

void refreshEnableStates(App& app) {
  SettingsView& view = app.platform.settingsView;
  const Settings& shown = app.form.settings;
  enableAll(view, {kSoundFileBox, kPickSoundButton, kSoundSecondsBox, kSoundSecondsLabel},
            shown.sound);
  enableAll(view, {kSwitchDeckBox, kPickDeckButton}, shown.switchPpt);
  enableAll(view, {kBlinkSecondsBox, kBlinkSecondsLabel}, shown.blink || shown.black);
  for (const int base : kStageBases) {
    const PromptStage& stage = base == kFirstStage ? shown.prompt1 : shown.prompt2;
    for (int offset = kStageMinutes; offset <= kStageSoundSeconds; ++offset) {
      const bool needsSound =
          offset == kStageSoundFile || offset == kStagePickSound || offset == kStageSoundSeconds;
      view.enable(base + offset, stage.enabled && (stage.sound || !needsSound));
    }
  }
  enableAll(view, {kOpenFileButton, kPlayFileButton, kCloseFileButton}, view.row(kFileList) >= 0);
  view.enable(kCopyAddressButton, app.remote.running);
  view.invalidate(kPreviewHost);
}

}  // namespace mrl
