// The application object: all state of the program, and the interfaces through which it reaches the
// outside. UI thread only. Its behaviour is in free functions beside it: the tick, the expiry
// actions, the commands, the clock's behaviour.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "core/audio_player.h"
#include "core/black_screen.h"
#include "core/instances.h"
#include "core/main_loop.h"
#include "core/popup_menu.h"
#include "core/screens.h"
#include "core/shell.h"
#include "core/show_follower.h"
#include "core/timer.h"
#include "core/tray.h"
#include "http/remote_server.h"
#include "http/request_queue.h"
#include "http/service_host.h"
#include "http/sockets.h"
#include "overlay/clock_drawing.h"
#include "overlay/clock_geometry.h"
#include "overlay/clock_window.h"
#include "overlay/resize_toolbar.h"
#include "presentation/automation_access.h"
#include "presentation/show_status.h"
#include "remote/firewall_rules.h"
#include "remote/network.h"
#include "settings/files.h"
#include "settings/settings.h"
#include "settings_window/dialogs.h"
#include "settings_window/form.h"
#include "settings_window/preview_view.h"
#include "settings_window/view.h"

namespace mrl {

/// The interfaces: AppWin supplies the real ones, tests supply fakes. All outlive the App.
struct Platform {
  Clock& clock;
  Files& files;
  Automation& automation;
  WindowSystem& windows;
  Screens& screens;
  MainLoop& loop;
  ClockWindow& clockWindow;
  ResizeToolbar& resizeToolbar;
  BlackScreen& blackScreen;
  AudioPlayer& audio;
  Tray& tray;
  PopupMenu& menu;
  Shell& shell;
  SettingsView& settingsView;
  SettingsDialogs& settingsDialogs;
  PreviewView& previewView;
  Sockets& sockets;
  RequestQueue& requests;
  ServiceHost& serviceHost;
  Network& network;
  FirewallRules& firewall;
  Instances& instances;

  [[nodiscard]] PresentationAccess presentation() const { return {automation, windows, files}; }
};

/// The exit codes of the process.
enum ExitCode : int { kExitNormal = 0, kExitNoCom = 1, kExitNoDrawing = 2, kExitNoClock = 3 };

/// Brings a show window to the front again and again: it comes up late, and the system may refuse.
struct RaisePulse {
  uint64_t untilMs = 0;  // 0: none
  uint64_t nextMs = 0;
};

/// The switch to another deck when the time is up.
struct DeckSwitch {
  std::u16string target;  // the deck; empty: no switch
  uint64_t openAtMs = 0;  // when it is opened
  bool hold = false;      // the clock stays hidden while the target is shown
  bool holdSeen = false;  // a poll has seen the target during the hold
  RaisePulse pulse;

  void endHold() {
    hold = false;
    pulse = {};
  }
};

/// A show that a remote command started.
struct StartedShow {
  std::u16string target;  // its deck
  RaisePulse pulse;
};

/// Driven by a test: files of its own, no firewall, no browser.
struct TestMode {
  bool isOn = false;
  std::u16string root;  // the folder of those files
};

/// Every time field is a reading of the time source in milliseconds; 0 means "not set".
struct App {
  explicit App(const Platform& interfaces) : platform(interfaces) {}
  App(const App&) = delete;
  App& operator=(const App&) = delete;

  Platform platform;

  Settings settings;
  TimerState timer;
  ShowFollower follower;
  AutomationState automation;
  ShowStatus lastStatus;

  bool resizeMode = false;
  bool settingsWritable = true;  // false: the file was refused; edits and moves do not save
  bool blackActive = false;

  std::u16string lastError;  // the last message for the user
  std::u16string settingsPath;
  TestMode testMode;

  uint64_t lastPollMs = 0;

  bool trayAdded = false;

  SettingsForm form;
  RemoteServer remote;

  std::optional<CornerDrag> drag;  // a corner drag of the clock in progress

  std::u16string lastClockText;
  bool lastBlinkOn = false;
  bool hiddenByRule = false;  // a hide rule, not the user, hid the clock
  bool lastExcluded = false;

  Blink blink;
  uint64_t soundStopMs = 0;  // when the sound is cut off
  DeckSwitch deckSwitch;
  StartedShow startedShow;
};

/// Start-up: parses the arguments (without the program's name), loads the settings and shows the
/// clock. `defaultSettingsPath` is used outside test mode. Returns an exit code if the program
/// should end: start-up failed, or another instance runs and shows its settings. Throws
/// std::filesystem::filesystem_error if the status of the settings file can't be read or the
/// test-mode folder can't be created.
std::optional<int> startApp(App& app, const std::vector<std::u16string>& arguments,
                            const std::u16string& defaultSettingsPath);

/// First half of the shutdown, called when the clock's window is destroyed: closes the other
/// windows and ends the message loop.
void onClockDestroyed(App& app);

/// Second half, after the message loop.
void finishApp(App& app);

/// Reports `text` in the status line, the only channel to the user outside dialogs. Never blocks.
/// If the settings window is closed, it shows the text when it opens.
void setStatus(App& app, const std::u16string& text);

/// What an open settings window shows anew after a change from outside its form. It overwrites what
/// was typed there.
enum class FormUpdate { None, Mode, ClockSize, All };

/// The only way to change the live settings: saves `changed`, makes it the live record and updates
/// the form. If the save fails, returns false, changes nothing and reports in `error` or, without
/// that parameter, in the status line.
bool adoptSettings(App& app, const Settings& changed, FormUpdate update, std::u16string& error);
bool adoptSettings(App& app, const Settings& changed, FormUpdate update);

}  // namespace mrl
