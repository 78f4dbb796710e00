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
  if (!showsDocument(app.platform.files, status, app.deckSwitch.target)) return;
  app.deckSwitch.holdSeen = true;
  followShow(app.follower, app.timer, app.settings,
             observeShow(app.platform.files, status, false, app.deckSwitch.target),
             app.platform.clock.nowMs());
}

/// Ends the effects of the expiry and hides the clock. The tick shows it again after the show.
void hideForTarget(App& app) {
  app.blink.stop();
  closeAudio(app);
  setBlack(app, false);
  app.deckSwitch.hold = true;
  app.deckSwitch.holdSeen = false;
  // A clock that the user hid is not marked, so that it stays hidden after the show.
  if (app.platform.clockWindow.isVisible()) {
    app.platform.clockWindow.hide();
    app.hiddenByRule = true;
  }
  lookForTarget(app);
  if (!app.deckSwitch.hold) return;  // a reset ran during that poll
  app.deckSwitch.pulse = {.untilMs = app.platform.clock.nowMs() + kPulseLengthMs};
}

void raiseIfDue(App& app, const std::u16string& target, RaisePulse& pulse, uint64_t nowMs) {
  if (pulse.untilMs == 0) return;
  if (nowMs >= pulse.untilMs) {
    pulse = {};
  } else if (nowMs >= pulse.nextMs) {
    // Set before the call, in which a reset may run and clear it.
    pulse.nextMs = nowMs + kPulsePeriodMs;
    // A copy, because such a reset also clears App's own string.
    raiseDocumentShow(app.platform.presentation(), app.automation, std::u16string(target));
  }
}

}  // namespace

void beginDeckSwitch(App& app, uint64_t nowMs) {
  // From here on only the new deck is raised.
  app.startedShow = {};
  pauseTimer(app.timer, nowMs);
  app.deckSwitch.target = app.settings.switchDeck;
  app.follower.switchPending = true;
  app.follower.switchSeen = false;
  // A delayed reset that came due during the switch would cancel the switch.
  app.follower.resetAtMs = 0;
  std::u16string ignored;  // there may be no show to exit
  (void)sendShowCommand(app.platform.presentation(), app.automation, "exit", ignored);
  if (app.follower.switchPending)
    app.deckSwitch.openAtMs = nowMs + kExitDelayMs;  // not reset meanwhile
}

void continueDeckSwitch(App& app, uint64_t nowMs) {
  if (app.deckSwitch.openAtMs == 0 || nowMs < app.deckSwitch.openAtMs) return;
  app.deckSwitch.openAtMs = 0;
  std::u16string error;
  const std::u16string target = app.deckSwitch.target;  // a reset during the call clears App's own
  if (tryOpenDocument(app.platform.presentation(), app.automation, target, true, error)) {
    // Empty after a reset: the deck plays on, but the clock stays visible.
    if (!app.deckSwitch.target.empty()) hideForTarget(app);
    return;
  }
  // Only the switch ends: the timer stays paused, and blink and sound go on.
  app.follower.switchPending = false;
  app.follower.switchSeen = false;
  app.deckSwitch.target.clear();
  setStatus(app, error);
}

void updateHold(App& app, bool isTargetShown) {
  if (!app.deckSwitch.hold) return;
  if (isTargetShown) {
    app.deckSwitch.holdSeen = true;
  } else if (app.deckSwitch.holdSeen) {
    app.deckSwitch.endHold();
  }
}

void raiseStartedShows(App& app, uint64_t nowMs) {
  raiseIfDue(app, app.deckSwitch.target, app.deckSwitch.pulse, nowMs);
  raiseIfDue(app, app.startedShow.target, app.startedShow.pulse, nowMs);
  // The switch's target is kept after its pulse: polls compare the running show with it.
  if (app.startedShow.pulse.untilMs == 0) app.startedShow.target.clear();
}

}  // namespace mrl
