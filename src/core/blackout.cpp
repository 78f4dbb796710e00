#include "core/blackout.h"

#include "core/clock_behaviour.h"
#include "core/expiry.h"

namespace mrl {
namespace {

constexpr int kKeyEscape = 0x1B;  // Windows' virtual key

}  // namespace

void setBlack(App& app, bool on) {
  BlackScreen& black = app.platform.blackScreen;
  if (!on) {
    black.uncover();
    app.platform.settingsView.standAboveAll(false);
    app.blackActive = false;
    return;
  }
  if (black.isCovering()) return;
  if (!app.lastStatus.running || app.lastExcluded) {
    setStatus(app, kNoShowToBlack);
    return;
  }
  app.blackActive = true;
  app.platform.settingsView.standAboveAll(true);
  black.cover(app.platform.screens.monitors());
  if (app.platform.clockWindow.isVisible()) showClock(app);
}

void onBlackRaised(App& app) {
  if (app.platform.clockWindow.isVisible()) app.platform.clockWindow.raise();
}

void onScreensChanged(App& app) {
  if (!app.platform.blackScreen.isCovering()) return;
  for (const Monitor& monitor : app.platform.screens.monitors()) {
    app.platform.blackScreen.follow(monitor);
  }
}

bool onBlackKey(App& app, int virtualKey) {
  if (virtualKey != kKeyEscape) return false;
  exitShow(app);
  return true;
}

}  // namespace mrl
