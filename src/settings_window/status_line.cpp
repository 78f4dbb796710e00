#include "settings_window/status_line.h"

#include "settings_window/control_ids.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

std::u16string phaseText(const App& app) {
  switch (app.timer.phase) {
    case TimerPhase::Running: return u"计时中";
    case TimerPhase::Paused: return u"已暂停";
    case TimerPhase::Idle: break;
  }
  return app.settings.autoMode && !app.lastStatus.running ? u"等待放映" : u"已停止";
}

std::u16string toggleText(TimerPhase phase) {
  switch (phase) {
    case TimerPhase::Running: return u"暂停";
    case TimerPhase::Paused: return u"继续";
    case TimerPhase::Idle: break;
  }
  return u"开始";
}

}  // namespace

void refreshStatusLine(App& app) {
  if (!app.form.isOpen) return;
  SettingsView& view = app.platform.settingsView;
  const std::u16string mode = app.settings.autoMode ? u"自动 · " : u"手动 · ";
  const std::u16string remote = app.remote.running ? u"  · 遥控已开启" : u"  · 遥控未开启";
  setTextIfChanged(app, kTimerLine, mode + phaseText(app) + remote + u"  " + app.lastClockText);
  setTextIfChanged(app, kToggleButton, toggleText(app.timer.phase));
  const bool runs = app.timer.phase == TimerPhase::Running;
  if (view.mark(kToggleButton, Mark::Active) == runs) return;
  view.setMark(kToggleButton, Mark::Active, runs);
  view.invalidate(kToggleButton);
}

}  // namespace mrl
