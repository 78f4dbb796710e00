#include "settings_window/auto_apply.h"

#include <vector>

#include "base/text.h"
#include "core/clock_behaviour.h"
#include "overlay/clock_geometry.h"
#include "remote/remote_service.h"
#include "settings_window/control_ids.h"
#include "settings_window/field_check.h"
#include "settings_window/form_sync.h"
#include "settings_window/remote_page.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr char16_t kPortWaits[] = u"端口尚未应用；点击“应用端口”后生效。";
constexpr char16_t kPortUnchanged[] = u"端口未更改。";
constexpr char16_t kEditing[] = u"正在编辑，输入有效后自动应用。";
constexpr char16_t kTyping[] = u"正在编辑，输入完成后自动应用。";
constexpr char16_t kReadOnly[] = u"配置文件无法读取，未自动覆盖；请先恢复配置文件。";
constexpr char16_t kNotApplied[] = u" 此项尚未应用，其他设置可继续使用。";
constexpr char16_t kSaveFailed[] = u"设置保存失败，此项尚未生效：";
constexpr char16_t kConflict[] = u"设置已生效；与之冲突的结束动作已关闭。";
constexpr char16_t kPortApplied[] = u"端口已更新，遥控服务已停止；请重新启动并授权。";
constexpr char16_t kOthersWait[] = u"设置已生效；另有输入尚未完成。";
constexpr char16_t kApplied[] = u"设置已自动保存并生效。";

/// A port that was typed but not applied counts too, although it is not queued.
void recomputeDirty(App& app) {
  app.form.settingsDirty = !app.form.pendingEdits.empty() || app.form.portDirty;
}

/// Keeps the edit queued but never due: the tick no longer tries it, a forced pass does.
bool keepWaiting(App& app, int id, const std::u16string& status) {
  app.form.pendingEdits[id] = kNotDue;
  setStatus(app, status);
  return false;
}

/// Of two conflicting actions the one changed last wins. Returns true if the other was switched
/// off. An edit that switches none of them on leaves an existing conflict alone.
bool resolveConflicts(int id, Settings& candidate) {
  if (!hasBlackConflict(candidate)) return false;
  if (id == kBlackCheck) {
    candidate.exitShow = false;
    candidate.switchPpt = false;
    return true;
  }
  const bool wins =
      (id == kExitShowCheck && candidate.exitShow) || (id == kSwitchCheck && candidate.switchPpt);
  if (wins) candidate.black = false;
  return wins;
}

/// Shows the actions as they were resolved, in the controls and in the form's settings.
void showActions(App& app) {
  SettingsView& view = app.platform.settingsView;
  {
    const SuppressControls quiet(app);
    view.setChecked(kBlackCheck, app.settings.black);
    view.setChecked(kExitShowCheck, app.settings.exitShow);
    view.setChecked(kSwitchCheck, app.settings.switchPpt);
  }
  syncForm(app);
}

/// Updates the clock's window from the adopted settings. It is resized only if the size was edited.
void showOnClock(App& app, int id) {
  ClockWindow& clock = app.platform.clockWindow;
  if (id == kWidthBox || id == kHeightBox) {
    const Size units{static_cast<int>(app.settings.windowWidth),
                     static_cast<int>(app.settings.windowHeight)};
    clock.resize(clockPixels(units, clock.dpi()));
  }
  clock.dropRegion();
  clock.invalidate();
}

struct Applied {
  bool conflict = false;
  bool portOfRunning = false;  // the port changed under the running service
};

/// Side effects on other settings or on the service are reported even while other input is pending.
std::u16string appliedStatus(const App& app, const Applied& applied) {
  if (applied.conflict) return kConflict;
  if (applied.portOfRunning) return kPortApplied;
  return app.form.settingsDirty ? kOthersWait : kApplied;
}

/// The effects of an edit whose settings are already saved and adopted.
void showApplied(App& app, const Field& field, const Applied& applied) {
  if (applied.conflict) showActions(app);
  clearInvalid(app, field.id);
  if (field.kind == FieldKind::Time) clearInvalid(app, field.secondsId);
  showOnClock(app, field.id);
  // The running service keeps its old port, so it is stopped; the user starts it again.
  if (applied.portOfRunning) {
    stopRemote(app);
    refreshRemotePage(app);
  }
  // Switching auto-start on also starts the service now; switching it off doesn't stop it.
  bool startFailed = false;
  if (field.id == kAutoStartCheck && app.settings.remoteAutoStart && !app.remote.running) {
    startFailed = !startRemote(app, true);
    refreshRemotePage(app);
  }
  applyHideRules(app);
  app.platform.clockWindow.invalidate();
  if (field.id == kFolderBox || field.id == kToggleExclusion) reloadFileList(app);
  // A failed start has already set the status line to its reason.
  if (!startFailed) setStatus(app, appliedStatus(app, applied));
  refreshEnableStates(app);
}

bool applyField(App& app, const Field& field) {
  Settings candidate = app.settings;
  const FieldCheck check = takeField(app, field, candidate);
  // An empty box that has the focus is not an error: no mark. Leaving it forces another pass.
  if (check.typing) return keepWaiting(app, field.id, kTyping);
  if (!check.valid) {
    app.platform.settingsView.setMark(check.errorId, Mark::Invalid, true);
    app.platform.settingsView.redrawFrame(check.errorId);
    return keepWaiting(app, field.id, check.error + kNotApplied);
  }
  Applied applied{.conflict = resolveConflicts(field.id, candidate)};
  // Include the clock's current position: it may have moved since the last save.
  const Rect clock = app.platform.clockWindow.rect();
  candidate.windowX = clock.left;
  candidate.windowY = clock.top;
  applied.portOfRunning = app.remote.running && candidate.remotePort != app.settings.remotePort;
  std::u16string error;
  if (!adoptSettings(app, candidate, FormUpdate::None, error)) {
    return keepWaiting(app, field.id, kSaveFailed + error);
  }
  app.form.pendingEdits.erase(field.id);
  if (field.id == kPortBox) app.form.portDirty = false;
  recomputeDirty(app);
  showApplied(app, field, applied);
  return true;
}

/// Drops the edit of an earlier press of the button that failed, so that no forced pass applies the
/// text typed since: that takes another press. While the port differs, portDirty marks the form.
void notePortInput(App& app) {
  app.form.pendingEdits.erase(kPortBox);
  app.form.portDirty = app.platform.settingsView.text(kPortBox) != decimal(app.settings.remotePort);
  recomputeDirty(app);
  setStatus(app, app.form.portDirty ? kPortWaits : kPortUnchanged);
}

}  // namespace

void clearInvalid(App& app, int id) {
  SettingsView& view = app.platform.settingsView;
  if (!view.mark(id, Mark::Invalid)) return;
  view.setMark(id, Mark::Invalid, false);
  view.redrawFrame(id);
}

void queueEdit(App& app, int id, uint64_t delayMs) {
  app.form.pendingEdits[queuedId(id)] = app.platform.clock.nowMs() + delayMs;
  app.form.settingsDirty = true;
}

void markEdited(App& app, int id, bool immediate) {
  if (!app.form.isOpen || app.form.controlsSuppressed) return;
  // A typed port waits for its button, because applying it stops the service.
  if (id == kPortBox && !immediate) return notePortInput(app);
  queueEdit(app, id, immediate ? 0 : kEditDelayMs);
  if (immediate) {
    applyEdit(app, queuedId(id));
  } else {
    setStatus(app, kEditing);
  }
}

void applyPending(App& app, bool force) {
  if (!app.form.isOpen || app.form.controlsSuppressed) return;
  std::vector<int> due;  // a copy: applying changes the map
  for (const auto& [id, dueMs] : app.form.pendingEdits) {
    if (force || dueMs <= app.platform.clock.nowMs()) due.push_back(id);
  }
  for (const int id : due) applyEdit(app, id);
}

bool applyEdit(App& app, int id) {
  if (!app.form.isOpen || !app.form.pendingEdits.contains(id)) return true;
  if (!app.settingsWritable) return keepWaiting(app, id, kReadOnly);
  const Field* field = findField(id);
  if (field) return applyField(app, *field);
  // The id of no field: nothing to apply, so drop it.
  app.form.pendingEdits.erase(id);
  recomputeDirty(app);
  return true;
}

}  // namespace mrl
