#include "remote/state.h"

#include <cstdio>

#include "core/timer.h"
#include "http/json_text.h"
#include "presentation/catalogue.h"

namespace mrl {
namespace {

std::u16string wallClock(const App& app) {
  if (!app.settings.machineTime) return {};
  const LocalTime time = app.platform.clock.localTime();
  char text[32];
  const int length =
      std::snprintf(text, sizeof text, "%02d:%02d:%02d", time.hour, time.minute, time.second);
  return {text, text + length};
}

std::string filesJson(App& app) {
  std::string rows;
  Files& files = app.platform.files;
  for (const std::u16string& path : listPresentations(files, app.settings.pptFolder)) {
    const PresentationFile file = presentationFile(app.settings, path);
    if (!rows.empty()) rows += ',';
    rows += "{\"id\":\"" + file.id + "\",\"name\":" + jsonString(file.name) +
            ",\"skip\":" + jsonBoolean(file.skip) + '}';
  }
  return '[' + rows + ']';
}

}  // namespace

std::string buildStateJson(App& app) {
  const TimerPhase phase = app.timer.phase;
  const std::u16string time = timeText(app.timer, app.platform.clock.nowMs(), app.settings);
  return "{\"time\":" + jsonString(time) +
         ",\"running\":" + jsonBoolean(phase == TimerPhase::Running) +
         ",\"paused\":" + jsonBoolean(phase == TimerPhase::Paused) +
         ",\"automatic\":" + jsonBoolean(app.settings.autoMode) +
         ",\"down\":" + jsonBoolean(app.settings.down) +
         ",\"duration\":" + std::to_string(app.settings.duration) +
         ",\"visible\":" + jsonBoolean(app.platform.clockWindow.isVisible()) +
         ",\"black\":" + jsonBoolean(app.platform.blackScreen.isCovering()) +
         ",\"showing\":" + jsonBoolean(app.lastStatus.running) +
         ",\"slide\":" + std::to_string(app.lastStatus.slide) +
         ",\"provider\":" + jsonString(app.lastStatus.provider) +
         ",\"machineTime\":" + jsonString(wallClock(app)) + ",\"files\":" + filesJson(app) + '}';
}

}  // namespace mrl
