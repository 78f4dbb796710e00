#include "settings_window/window.h"

#include <algorithm>

#include "settings_window/auto_apply.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/form_sync.h"
#include "settings_window/layout.h"
#include "settings_window/remote_page.h"

namespace mrl {
namespace {

constexpr char16_t kNoEditYet[] = u"设置自动生效";
constexpr char16_t kAskClose[] = u"部分输入无效或保存失败，尚未生效。放弃这些输入并关闭？";
constexpr int kMarginUnits = 24;

// Windows' virtual keys.
constexpr int kKeyOne = 0x31;
constexpr int kKeyS = 0x53;

/// Centred on the clock's monitor, and smaller than its work area.
Rect placeOf(const App& app) {
  const ClockWindow& clock = app.platform.clockWindow;
  const Rect area = clock.nearestWorkArea();
  const int dpi = clock.dpi();
  const int margin = toPixels(kMarginUnits, dpi);
  const int width = std::min(area.width() - margin, toPixels(kSettingsWindowUnits.width, dpi));
  const int height = std::min(area.height() - margin, toPixels(kSettingsWindowUnits.height, dpi));
  const int left = area.left + (area.width() - width) / 2;
  const int top = area.top + (area.height() - height) / 2;
  return {left, top, left + width, top + height};
}

void fillWindow(App& app) {
  SettingsView& view = app.platform.settingsView;
  view.setText(kStatusText, app.lastError.empty() ? kNoEditYet : app.lastError);
  view.setRow(kTabs, 0);
  view.setRow(kPreviewPhaseCombo, 0);
  fillControls(app);
  reloadFileList(app);
  refreshRemotePage(app);
  layoutPage(app);
}

}  // namespace

void openSettingsWindow(App& app) {
  SettingsView& view = app.platform.settingsView;
  if (app.form.isOpen) return view.restore();
  app.form = {.settings = app.settings, .customColours = app.form.customColours};
  {
    const SuppressControls quiet(app);  // boxes notify while they are being created
    if (!view.create(placeOf(app))) return;
    app.form.isOpen = true;
    fillWindow(app);
  }
  view.show();
}

bool mayDiscardInput(App& app, const std::u16string& question) {
  if (!app.form.isOpen) return true;
  applyPending(app, true);
  if (!app.form.settingsDirty) return true;
  // The question takes the focus from a box, and its loss would force the edits in question.
  const SuppressControls quiet(app);
  return app.platform.settingsDialogs.askYesNo(question, kDialogTitle, DialogIcon::Question);
}

bool closeSettingsWindow(App& app) {
  if (!mayDiscardInput(app, kAskClose)) return false;
  destroySettingsWindow(app);
  return true;
}

void destroySettingsWindow(App& app) {
  // Before destroy(): a box that loses the focus on destruction must not apply anything.
  app.form.isOpen = false;
  app.form.pendingEdits.clear();
  app.form.settingsDirty = false;
  app.form.portDirty = false;
  app.platform.settingsView.destroy();
}

void selectPage(App& app, int index) {
  if (!app.form.isOpen) return;
  app.form.page = std::clamp(index, 0, kPageCount - 1);
  app.form.scrollPosition = 0;
  app.form.wheelRemainder = 0;
  app.platform.settingsView.setRow(kTabs, app.form.page);
  layoutPage(app);
}

bool onSettingsKey(App& app, int virtualKey, HeldKeys held) {
  // Ctrl with Alt is AltGr, which types characters.
  if (!held.control || held.alt) return false;
  if (virtualKey == kKeyS) {
    applyPending(app, true);
    refreshEnableStates(app);
    return true;
  }
  const int page = virtualKey - kKeyOne;
  if (page < 0 || page >= kPageCount) return false;
  selectPage(app, page);
  app.platform.settingsView.focus(kFirstSection + page);
  return true;
}

void setTextIfChanged(App& app, int id, const std::u16string& text) {
  SettingsView& view = app.platform.settingsView;
  if (view.text(id) != text) view.setText(id, text);
}

void refillForm(App& app) {
  if (!app.form.isOpen) return;
  app.form.settings = app.settings;
  fillControls(app);
}

}  // namespace mrl
