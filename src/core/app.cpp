#include "core/app.h"

#include <filesystem>
#include <memory>
#include <system_error>

#include "core/blackout.h"
#include "core/commands.h"
#include "core/expiry.h"
#include "core/test_files.h"
#include "core/text.h"
#include "core/tray_icon.h"
#include "overlay/clock_behaviour.h"
#include "remote/remote_service.h"
#include "settings/settings_file.h"
#include "settings_window/control_ids.h"
#include "settings_window/settings_window.h"

namespace mrl {
namespace {

constexpr char16_t kTestRootArgument[] = u"--test-root=";
constexpr char16_t kSettingsFileName[] = u"settings.dat";
constexpr char16_t kFirstSaveFailed[] = u"初始设置保存失败：";
constexpr uint32_t kTickPeriodMs = 100;

void readArguments(App& app, const std::vector<std::u16string>& arguments) {
  const std::u16string_view prefix = kTestRootArgument;
  for (const std::u16string& argument : arguments) {
    if (!argument.starts_with(prefix)) continue;
    app.testMode = true;
    app.testRoot = argument.substr(prefix.size());
  }
}

bool fileExists(App& app) {
  FileKind kind = FileKind::Missing;
  std::u16string error;
  if (!app.platform.files.status(app.settingsPath, kind, error)) {
    throw std::filesystem::filesystem_error("exists", std::filesystem::path(app.settingsPath),
                                            std::make_error_code(std::errc::io_error));
  }
  return kind != FileKind::Missing;
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
  const bool firstRun = !fileExists(app);
  app.settingsWritable =
      loadSettings(app.platform.files, app.settingsPath, app.settings, app.lastError);
  if (firstRun) placeFirstTime(app);
}

bool createClock(App& app) {
  const int dpi = app.platform.screens.systemDpi();
  const Settings& settings = app.settings;
  const int width = toPixels(static_cast<int>(settings.windowWidth), dpi);
  const int height = toPixels(static_cast<int>(settings.windowHeight), dpi);
  return app.platform.clockWindow.create(
      {settings.windowX, settings.windowY, settings.windowX + width, settings.windowY + height});
}

/// Tells the tests that the program is up. The process id reaches the disk last, so whoever sees it
/// finds everything else in place.
void announceReady(App& app) {
  std::u16string error;
  Files& files = app.platform.files;
  if (!files.createFolders(app.testRoot, error)) {
    throw std::filesystem::filesystem_error("create_directories",
                                            std::filesystem::path(app.testRoot),
                                            std::make_error_code(std::errc::io_error));
  }
  const std::unique_ptr<FileWriter> ready = files.create(inTestRoot(app, u"ready.txt"));
  if (app.remote.running) writeTestFile(app, u"remote.txt", app.remote.pairingKey);
  if (ready) (void)ready->write(std::to_string(app.platform.loop.processId()));
}

}  // namespace

std::optional<int> startApp(App& app, const std::vector<std::u16string>& arguments,
                            const std::u16string& defaultSettingsPath) {
  readArguments(app, arguments);
  app.settingsPath = app.testMode ? inTestRoot(app, kSettingsFileName) : defaultSettingsPath;
  loadOrDefault(app);
  if (!app.platform.loop.prepareDrawing()) return kExitNoDrawing;
  app.platform.loop.registerWindowClasses();
  if (!createClock(app)) return kExitNoClock;
  correctOffScreen(app);
  app.platform.loop.setTimer(LoopTimer::Tick, kTickPeriodMs);
  showClock(app);
  app.platform.clockWindow.paintNow();
  addTrayIcon(app);
  if (app.settings.remoteAutoStart) startRemote(app, true);
  if (app.testMode) announceReady(app);
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
  app.platform.requests.drain();  // last: with the listener gone nothing new comes
}

void setStatus(App& app, const std::u16string& text) {
  app.lastError = text;
  if (app.form.isOpen) app.platform.settingsView.setText(kStatusText, text);
}

bool adoptSettings(App& app, const Settings& changed, std::u16string& error) {
  if (!saveSettings(app.platform.files, app.settingsPath, changed, error)) return false;
  app.settings = changed;
  return true;
}

bool adoptSettings(App& app, const Settings& changed) {
  std::u16string error;
  if (adoptSettings(app, changed, error)) return true;
  setStatus(app, error);
  return false;
}

}  // namespace mrl
