#include "core/tick.h"

#include "core/blackout.h"
#include "core/clock_behaviour.h"
#include "core/deck_switch.h"
#include "core/expiry.h"
#include "presentation/show_identity.h"
#include "presentation/show_poll.h"
#include "settings_window/auto_apply.h"
#include "settings_window/status_line.h"

namespace mrl {
namespace {

constexpr int64_t kPollPeriodMs = 1500;

bool isSameShow(const ShowStatus& before, const ShowStatus& status) {
  return before.running && before.window == status.window &&
         before.documentPath == status.documentPath;
}

void raiseAboveNewShow(App& app) {
  app.platform.blackScreen.raise();
  if (app.platform.clockWindow.isVisible()) app.platform.clockWindow.raise();
}

void poll(App& app, uint64_t nowMs) {
  const uint64_t clockMs = app.platform.clock.nowMs();
  if (static_cast<int64_t>(clockMs - app.lastPollMs) < kPollPeriodMs) return;
  app.lastPollMs = clockMs;
  const ShowStatus status = pollShowStatus(app.platform.presentation(), app.automation);
  const bool excluded = isExcluded(app.settings, status);
  const ShowObservation seen =
      observeShow(app.platform.files, status, excluded, app.deckSwitch.target);
  updateHold(app, seen.isSwitchTarget);

  const int64_t before = elapsedAt(app.timer, nowMs);
  followShow(app.follower, app.timer, app.settings, seen, nowMs);
  if (elapsedAt(app.timer, nowMs) < before) app.blink.stop();
  if (app.blackActive && (!status.running || excluded)) setBlack(app, false);
  if (status.running && !isSameShow(app.lastStatus, status)) raiseAboveNewShow(app);
  app.lastExcluded = excluded;
  app.lastStatus = status;
}

void resetIfDue(App& app, uint64_t nowMs) {
  const TimerPhase before = app.timer.phase;
  applyPendingReset(app.follower, app.timer, app.settings, nowMs);
  if (before != TimerPhase::Idle && app.timer.phase == TimerPhase::Idle) clearRuntime(app);
}

void fireWhatIsDue(App& app, uint64_t nowMs) {
  for (const int stage : {0, 1}) {
    if (stageDue(app.timer, stage, nowMs, app.settings)) fireStage(app, stage);
  }
  if (expiryDue(app.timer, nowMs, app.settings)) fireExpiry(app, nowMs);
}

void repaintIfChanged(App& app, uint64_t nowMs) {
  const std::u16string text = timeText(app.timer, nowMs, app.settings);
  const bool blinkOn = isBlinkOn(app);
  if (text == app.lastClockText && blinkOn == app.lastBlinkOn) return;
  app.lastClockText = text;
  app.lastBlinkOn = blinkOn;
  app.platform.clockWindow.setText(text);
  app.platform.clockWindow.invalidate();
}

}  // namespace

void tick(App& app) {
  applyPending(app, false);
  const uint64_t nowMs = app.platform.clock.nowMs();
  poll(app, nowMs);
  resetIfDue(app, nowMs);
  fireWhatIsDue(app, nowMs);
  runTimedWork(app, nowMs);
  applyHideRules(app);
  repaintIfChanged(app, nowMs);
  refreshStatusLine(app);
}

}  // namespace mrl
