#include "core/commands.h"

#include "core/blackout.h"
#include "core/clock_behaviour.h"
#include "core/expiry.h"
#include "core/test_files.h"
#include "remote/addresses.h"
#include "settings_window/control_table.h"
#include "settings_window/remote_page.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

// Windows' virtual keys.
constexpr int kKeyF2 = 0x71;
constexpr int kKeyF4 = 0x73;

constexpr char16_t kStartFirst[] = u"请先点击“启动遥控服务”并完成网络授权。";
constexpr char16_t kAddressShown[] = u"当前地址已更新；网络发生变化时请关闭并重新启动服务。";
constexpr char16_t kServiceNotRunning[] = u"遥控服务未启动，请在网络页恢复服务。";
constexpr char16_t kAskExit[] = u"部分输入无效或保存失败，尚未生效。放弃这些输入并退出？";

void toggleTimer(App& app) {
  const uint64_t nowMs = app.platform.clock.nowMs();
  if (app.timer.phase == TimerPhase::Running) {
    pauseTimer(app.timer, nowMs);
  } else {
    startTimer(app.timer, nowMs);
  }
}

void setClockVisible(App& app, bool visible) {
  if (visible) {
    showClock(app);
  } else {
    app.platform.clockWindow.hide();
  }
  app.hiddenByRule = false;  // from now on this is the user's choice
}

void setMode(App& app, bool automatic) {
  Settings changed = app.settings;
  changed.autoMode = automatic;
  if (!adoptSettings(app, changed, FormUpdate::Mode)) return;
  // Now, not at the next poll: automatic mode chosen during a show starts the timer at once.
  followShow(
      app.follower, app.timer, app.settings,
      observeShow(app.platform.files, app.lastStatus, app.lastExcluded, app.deckSwitch.target),
      app.platform.clock.nowMs());
}

void exitProgram(App& app) {
  if (mayDiscardInput(app, kAskExit)) app.platform.clockWindow.destroy();
}

void openRemotePage(App& app) {
  if (!app.remote.running) {
    openSettingsWindow(app);
    selectPage(app, kRemotePage);
    setStatus(app, kStartFirst);
    refreshRemotePage(app);
  } else if (app.testMode.isOn) {
    writeTestFile(app, u"remote-opened.txt", "opened");
  } else {
    // Ignored: the shell shows its own error.
    (void)app.platform.shell.open(remoteUrlList({}, u"", app.remote.port), u"");
  }
}

void refreshRemoteAddress(App& app) {
  refreshRemotePage(app);
  setStatus(app, app.remote.running ? kAddressShown : kServiceNotRunning);
}

void performCommand(App& app, int command) {
  switch (command) {
    case kCommandToggleTimer: return toggleTimer(app);
    case kCommandReset: resetTimer(app.timer); return clearRuntime(app);
    case kCommandOpenSettings: return openSettingsWindow(app);
    case kCommandToggleResizeMode: return toggleResizeMode(app);
    case kCommandDefaultSize: return restoreDefaultSize(app);
    case kCommandToggleVisibility:
      return setClockVisible(app, !app.platform.clockWindow.isVisible());
    case kCommandToggleBlack: return setBlack(app, !app.platform.blackScreen.isCovering());
    case kCommandExit: return exitProgram(app);
    case kCommandShowClock: return setClockVisible(app, true);
    case kCommandHideClock: return setClockVisible(app, false);
    case kCommandOpenRemote: return openRemotePage(app);
    case kCommandRefreshRemote: return refreshRemoteAddress(app);
    case kCommandManualMode: return setMode(app, false);
    case kCommandAutoMode: return setMode(app, true);
    case kCommandPauseOrResume:
      if (app.timer.phase != TimerPhase::Idle) toggleTimer(app);
      return;
    default: return;
  }
}

}  // namespace

void runCommand(App& app, int command) {
  performCommand(app, command);
  app.platform.clockWindow.invalidate();
}

bool onClockKey(App& app, int virtualKey) {
  switch (virtualKey) {
    case kKeyF2: runCommand(app, kCommandToggleTimer); return true;
    case kKeyF4: runCommand(app, kCommandReset); return true;
    default: return app.blackActive && onBlackKey(app, virtualKey);
  }
}

}  // namespace mrl
