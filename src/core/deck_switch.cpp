#include "core/deck_switch.h"

#include "core/audio.h"
#include "core/blackout.h"
#include "core/expiry.h"
#include "presentation/documents.h"
#include "presentation/show_control.h"
#include "presentation/show_identity.h"
#include "presentation/show_poll.h"

namespace mrl {
namespace {

constexpr uint64_t kExitDelayMs = 500;  // time for the old show to close
constexpr uint64_t kPulseLengthMs = 2000;
constexpr uint64_t kPulsePeriodMs = 250;

/// Polls at once: a show that ends before the next poll would never be seen, and the clock would
/// stay hidden.
void lookForTarget(App& app) {
  const ShowStatus status = pollShowStatus(app.platform.presentation(), app.automation);
  if (!showsDocument(app.platform.files, status, app.switchTarget)) return;
  app.switchHoldSeen = true;
  followShow(app.follower, app.timer, app.settings,
             observe(app.platform.files, status, false, app.switchTarget),
             app.platform.clock.nowMs());
}

/// Ends the effects of the expiry and hides the clock. The tick shows it again after the show.
void holdForTarget(App& app) {
  app.blinkActive = false;
  app.blinkEndMs = 0;
  closeAudio(app);
  setBlack(app, false);
  app.switchHold = true;
  app.switchHoldSeen = false;
  // A clock that the user hid is not marked, so that it stays hidden after the show.
  if (app.platform.clockWindow.isVisible()) {
    app.platform.clockWindow.hide();
    app.hiddenByRule = true;
  }
  lookForTarget(app);
  if (!app.switchHold) return;  // a reset ran during that poll
  app.switchPulseUntilMs = app.platform.clock.nowMs() + kPulseLengthMs;
  app.switchPulseNextMs = 0;
}

void pulse(App& app, const std::u16string& target, uint64_t& untilMs, uint64_t& nextMs,
           uint64_t nowMs) {
  if (untilMs == 0) return;
  if (nowMs >= untilMs) {
    untilMs = nextMs = 0;
  } else if (nowMs >= nextMs) {
    // Set before the call, in which a reset may run and clear it.
    nextMs = nowMs + kPulsePeriodMs;
    // A copy, because such a reset also clears App's own string.
    raiseDocumentShow(app.platform.presentation(), app.automation, std::u16string(target));
  }
}

}  // namespace

void beginDeckSwitch(App& app, uint64_t nowMs) {
  // From here on only the new deck is raised.
  app.openPulseUntilMs = 0;
  app.openPulseNextMs = 0;
  app.openPulseTarget.clear();
  pauseTimer(app.timer, nowMs);
  app.switchTarget = app.settings.switchDeck;
  app.follower.switchPending = true;
  app.follower.switchSeen = false;
  // A delayed reset that came due during the switch would cancel the switch.
  app.follower.resetAtMs = 0;
  std::u16string ignored;  // there may be no show to exit
  (void)sendShowCommand(app.platform.presentation(), app.automation, "exit", ignored);
  if (app.follower.switchPending) app.switchAtMs = nowMs + kExitDelayMs;  // not reset meanwhile
}

void continueDeckSwitch(App& app, uint64_t nowMs) {
  if (app.switchAtMs == 0 || nowMs < app.switchAtMs) return;
  app.switchAtMs = 0;
  std::u16string error;
  const std::u16string target = app.switchTarget;  // a reset during the call clears App's own
  if (tryOpenDocument(app.platform.presentation(), app.automation, target, true, error)) {
    // Empty after a reset: the deck plays on, but the clock stays visible.
    if (!app.switchTarget.empty()) holdForTarget(app);
    return;
  }
  // Only the switch ends: the timer stays paused, and blink and sound go on.
  app.follower.switchPending = false;
  app.follower.switchSeen = false;
  app.switchTarget.clear();
  setStatus(app, error);
}

void raiseStartedShows(App& app, uint64_t nowMs) {
  pulse(app, app.switchTarget, app.switchPulseUntilMs, app.switchPulseNextMs, nowMs);
  pulse(app, app.openPulseTarget, app.openPulseUntilMs, app.openPulseNextMs, nowMs);
  // switchTarget is kept after its pulse: polls compare the running show with it.
  if (app.openPulseUntilMs == 0) app.openPulseTarget.clear();
}

}  // namespace mrl
