#include "core/expiry.h"

#include "core/audio.h"
#include "core/blackout.h"
#include "core/deck_switch.h"
#include "presentation/show_control.h"

namespace mrl {

void startBlink(App& app, uint32_t seconds) {
  app.blink.start(app.platform.clock.nowMs(), seconds);
}

void fireStage(App& app, int index) {
  const PromptStage& stage = index == 0 ? app.settings.prompt1 : app.settings.prompt2;
  if (stage.blinkWindow || stage.blinkBackground) startBlink(app, stage.blinkSeconds);
  if (stage.sound) playAudio(app, stage.soundFile, static_cast<int32_t>(stage.soundSeconds));
}

void fireExpiry(App& app, uint64_t nowMs) {
  const Settings& settings = app.settings;
  // The overtime stays visible above the black screen; blink so that it is noticed.
  if (settings.blink || settings.black) startBlink(app, settings.blinkSeconds);
  if (settings.black) setBlack(app, true);
  if (settings.exitShow) exitShow(app);
  if (settings.sound) {
    playAudio(app, settings.soundFile, static_cast<int32_t>(settings.soundSeconds));
  }
  if (settings.switchPpt) beginDeckSwitch(app, nowMs);
}

void runTimedWork(App& app, uint64_t nowMs) {
  continueDeckSwitch(app, nowMs);
  raiseStartedShows(app, nowMs);
  if (app.soundStopMs != 0 && nowMs >= app.soundStopMs) closeAudio(app);
  if (app.blink.endMs != 0 && nowMs >= app.blink.endMs) app.blink.stop();
}

void clearRuntime(App& app) {
  app.follower.switchPending = false;
  app.follower.switchSeen = false;
  app.deckSwitch = {};
  app.blink.stop();
  closeAudio(app);
}

void exitShow(App& app) {
  std::u16string error;
  if (!sendShowCommand(app.platform.presentation(), app.automation, "exit", error)) {
    setStatus(app, error);
  }
}

}  // namespace mrl
