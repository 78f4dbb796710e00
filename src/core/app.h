// The one application object: all state of the program, and the doors through which it reaches the
// outside. It belongs to the UI thread. What it does stands in free functions beside it: the tick,
// the expiry actions, the commands, the clock window's behaviour.
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
#include "overlay/clock_geometry.h"
#include "overlay/clock_window.h"
#include "overlay/resize_toolbar.h"
#include "presentation/automation_access.h"
#include "presentation/show_status.h"
#include "remote/firewall_rules.h"
#include "remote/network.h"
#include "settings/files.h"
#include "settings/settings.h"
#include "settings_window/settings_form.h"
#include "settings_window/settings_view.h"

namespace mrl {

/// The doors: real ones come from the program's entry, fakes from tests. All outlive the App.
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
  Sockets& sockets;
  RequestQueue& requests;
  ServiceHost& serviceHost;
  Network& network;
  FirewallRules& firewall;
  Instances& instances;

  [[nodiscard]] PresentationAccess presentation() const { return {automation, windows, files}; }
};

/// What the process ends with.
enum ExitCode : int { kExitNormal = 0, kExitNoCom = 1, kExitNoDrawing = 2, kExitNoClock = 3 };

/// Every time field is a reading of the clock; 0 means "not set".
struct App {
  explicit App(const Platform& doors) : platform(doors) {}
  App(const App&) = delete;
  App& operator=(const App&) = delete;

  Platform platform;

  Settings settings;
  TimerState timer;
  ShowFollower follower;
  AutomationState automation;
  ShowStatus lastStatus;

  bool resizeMode = false;
  bool settingsWritable = true;  // false: the file on disk was refused and is protected
  bool blackActive = false;

  std::u16string lastError;  // the last message for the user
  std::u16string settingsPath;
  bool testMode = false;
  std::u16string testRoot;

  uint64_t lastPollMs = 0;

  bool trayAdded = false;

  SettingsForm form;
  RemoteServer remote;

  std::optional<CornerDrag> drag;  // a corner drag of the clock in progress

  std::u16string lastClockText;
  bool lastBlinkOn = false;
  bool hiddenByRule = false;  // a hide rule, not the user, hid the clock
  bool lastExcluded = false;

  std::u16string switchTarget;  // the deck that the switch after expiry plays
  bool switchHold = false;      // the clock stays hidden while that deck is shown
  bool switchHoldSeen = false;  // a poll has seen it during the hold
  bool blinkActive = false;
  uint64_t blinkStartMs = 0;
  uint64_t blinkEndMs = 0;
  uint64_t soundStopMs = 0;  // when the sound is cut off
  uint64_t switchAtMs = 0;
  uint64_t switchPulseUntilMs = 0;
  uint64_t switchPulseNextMs = 0;
  std::u16string openPulseTarget;  // a deck that a remote command started
  uint64_t openPulseUntilMs = 0;
  uint64_t openPulseNextMs = 0;
};

/// Start-up: reads the arguments (without the program's name), loads the settings and brings the
/// clock up. `defaultSettingsPath` is used outside test mode. Gives an exit code when the program
/// is to end: it can't go on, or it runs already and shows its settings. Throws
/// std::filesystem::filesystem_error when the file system can't even tell whether there are
/// settings, or can't make the folder of test mode.
std::optional<int> startApp(App& app, const std::vector<std::u16string>& arguments,
                            const std::u16string& defaultSettingsPath);

/// First half of the shutdown, when the clock's window goes: takes the other windows along and ends
/// the loop.
void onClockDestroyed(App& app);

/// Second half, after the loop.
void finishApp(App& app);

/// The one way of telling the user something outside a dialog. Never blocks.
void setStatus(App& app, const std::u16string& text);

/// Saves `changed` and adopts it only if that worked. Otherwise returns false, and the user is told
/// by `error` or, without it, by the status.
bool adoptSettings(App& app, const Settings& changed, std::u16string& error);
bool adoptSettings(App& app, const Settings& changed);

/// The same, for a change that does not come from the settings window's own input: what it shows is
/// replaced.
bool adoptAndShow(App& app, const Settings& changed, std::u16string& error);

}  // namespace mrl
