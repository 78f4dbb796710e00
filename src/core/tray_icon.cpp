#include "core/tray_icon.h"

#include "core/commands.h"
#include "core/menu.h"

namespace mrl {
namespace {

constexpr uint32_t kRetryPeriodMs = 5000;

// Windows' mouse messages.
constexpr uint32_t kLeftButtonUp = 0x0202;
constexpr uint32_t kLeftDoubleClick = 0x0203;
constexpr uint32_t kRightButtonUp = 0x0205;

}  // namespace

void addTrayIcon(App& app) {
  // The shell also announces itself after a change of DPI, and then still has the icon.
  app.trayAdded = app.platform.tray.add() || app.platform.tray.refresh();
  if (app.trayAdded) {
    app.platform.loop.killTimer(LoopTimer::TrayRetry);
  } else {
    app.platform.loop.setTimer(LoopTimer::TrayRetry, kRetryPeriodMs);
  }
}

void retryTrayIcon(App& app) {
  if (!app.trayAdded) addTrayIcon(app);
}

void onShellStarted(App& app) {
  app.trayAdded = false;
  addTrayIcon(app);
}

void removeTrayIcon(App& app) {
  app.platform.tray.remove();
  app.trayAdded = false;
}

void onTrayMouse(App& app, uint32_t message) {
  switch (message) {
    case kLeftButtonUp:
    case kLeftDoubleClick: return runCommand(app, kCommandOpenSettings);
    case kRightButtonUp:
      return showMenu(app, app.platform.clockWindow.handle(), app.platform.clockWindow.cursor());
    default: return;
  }
}

}  // namespace mrl
