#include "core/app.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "base/text.h"
#include "core/blackout.h"
#include "core/clock_behaviour.h"
#include "core/commands.h"
#include "core/expiry.h"
#include "core/second_start.h"
#include "core/test_files.h"
#include "core/tray_icon.h"
#include "remote/remote_service.h"
#include "settings/file_kind.h"
#include "settings/settings_file.h"
#include "settings_window/control_ids.h"
#include "settings_window/form_sync.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr char16_t kTestRootArgument[] = u"--test-root=";
constexpr char16_t kSettingsFileName[] = u"settings.dat";
constexpr char16_t kFirstSaveFailed[] = u"初始设置保存失败：";
constexpr uint32_t kTickPeriodMs = 100;
// No screen reaches that far, and a window near the limits of int may be created without a size.
constexpr int kFarthestPlace = 1'000'000;

void readArguments(App& app, const std::vector<std::u16string>& arguments) {
  const std::u16string_view prefix = kTestRootArgument;
  for (const std::u16string& argument : arguments) {
    if (!argument.starts_with(prefix)) continue;
    app.testMode.isOn = true;
    app.testMode.root = argument.substr(prefix.size());
  }
}

void placeFirstTime(App& app) {
  const Point place =
      firstRunPlace(app.platform.screens.primaryWorkArea(),
                    static_cast<int>(app.settings.windowWidth), app.platform.screens.systemDpi());
  app.settings.windowX = place.x;
  app.settings.windowY = place.y;
  if (!app.settingsWritable) return;
  std::u16string error;
  if (!saveSettings(app.platform.files, app.settingsPath, app.settings, error)) {
    app.lastError = kFirstSaveFailed + error;
  }
}

void loadOrDefault(App& app) {
  Files& files = app.platform.files;
  const bool firstRun = fileKindOf(files, app.settingsPath, u"exists") == FileKind::Missing;
  app.settingsWritable = loadSettings(files, app.settingsPath, app.settings, app.lastError);
  if (firstRun) placeFirstTime(app);
}

bool createClock(App& app) {
  const int dpi = app.platform.screens.systemDpi();
  const Settings& settings = app.settings;
  const int width = toPixels(static_cast<int>(settings.windowWidth), dpi);
  const int height = toPixels(static_cast<int>(settings.windowHeight), dpi);
  const auto within = [](int place) { return std::clamp(place, -kFarthestPlace, kFarthestPlace); };
  return app.platform.clockWindow.create({within(settings.windowX), within(settings.windowY)},
                                         {width, height});
}

/// Keeps an error from loading the settings: the user has not seen it yet, and a service that can't
/// start must not replace it.
void startService(App& app) {
  const std::u16string early = std::exchange(app.lastError, u"");
  startRemote(app, true);
  if (early.empty()) return;
  app.lastError = app.lastError.empty() ? early : early + u"\n" + app.lastError;
}

/// Signals the tests that the program is up. The process id is written last, so that whoever reads
/// it finds everything else in place.
void announceReady(App& app) {
  std::u16string error;
  Files& files = app.platform.files;
  if (!files.createFolders(app.testMode.root, error)) {
    throwFileError(u"create_directories", error, app.testMode.root);
  }
  const std::unique_ptr<FileWriter> ready = files.create(inTestRoot(app, u"ready.txt"));
  if (app.remote.running) writeTestFile(app, u"remote.txt", app.remote.pairingKey);
  if (ready) (void)ready->write(std::to_string(app.platform.loop.processId()));
}

}  // namespace

std::optional<int> startApp(App& app, const std::vector<std::u16string>& arguments,
                            const std::u16string& defaultSettingsPath) {
  readArguments(app, arguments);
  if (!app.testMode.isOn && handOver(app.platform.instances)) return kExitNormal;
  app.settingsPath = app.testMode.isOn ? inTestRoot(app, kSettingsFileName) : defaultSettingsPath;
  loadOrDefault(app);
  if (!app.platform.loop.prepareDrawing()) return kExitNoDrawing;
  app.platform.loop.registerWindowClasses();
  if (!createClock(app)) return kExitNoClock;
  if (!app.testMode.isOn) app.platform.instances.announce(app.platform.clockWindow.handle());
  correctOffScreen(app);
  app.platform.loop.setTimer(LoopTimer::Tick, kTickPeriodMs);
  showClock(app);
  app.platform.clockWindow.paintNow();
  addTrayIcon(app);
  if (app.settings.remoteAutoStart) startService(app);
  if (app.testMode.isOn) announceReady(app);
  app.platform.loop.postCommand(kCommandOpenSettings);
  return std::nullopt;
}

void onClockDestroyed(App& app) {
  app.platform.loop.killTimer(LoopTimer::TrayRetry);
  removeTrayIcon(app);
  setBlack(app, false);
  app.platform.resizeToolbar.remove();
  destroySettingsWindow(app);
  app.platform.loop.quit();
}

void finishApp(App& app) {
  stopServer(app.remote);
  clearRuntime(app);
  app.platform.requests.drain();  // last: without the listener nothing more is queued
}

void setStatus(App& app, const std::u16string& text) {
  app.lastError = text;
  if (app.form.isOpen) app.platform.settingsView.setText(kStatusText, text);
}

bool adoptSettings(App& app, const Settings& changed, FormUpdate update, std::u16string& error) {
  if (!saveSettings(app.platform.files, app.settingsPath, changed, error)) return false;
  const bool listChanged = changed.skipList != app.settings.skipList;
  app.settings = changed;
  switch (update) {
    case FormUpdate::None: break;
    case FormUpdate::Mode: showChangedMode(app); break;
    case FormUpdate::ClockSize: showChangedSize(app); break;
    case FormUpdate::All:
      refillForm(app);
      if (listChanged) reloadFileList(app);
      break;
  }
  return true;
}

bool adoptSettings(App& app, const Settings& changed, FormUpdate update) {
  std::u16string error;
  if (adoptSettings(app, changed, update, error)) return true;
  setStatus(app, error);
  return false;
}

}  // namespace mrl
