// The program on Windows: creates the real interfaces, owns the App, runs the message loop and
// routes the messages of all windows. UI thread.
#pragma once

#include <windows.h>

#include "base/clock_win.h"
#include "core/app.h"
#include "core/audio_player_win.h"
#include "core/black_screen_win.h"
#include "core/instances_win.h"
#include "core/popup_menu_win.h"
#include "core/screens_win.h"
#include "core/shell_win.h"
#include "core/tray_win.h"
#include "http/request_queue_win.h"
#include "http/service_host_win.h"
#include "http/sockets_win.h"
#include "overlay/clock_painter_win.h"
#include "overlay/clock_window_win.h"
#include "overlay/resize_toolbar_win.h"
#include "presentation/automation_win.h"
#include "presentation/window_system_win.h"
#include "remote/firewall_rules_win.h"
#include "remote/network_win.h"
#include "settings/files_win.h"
#include "settings_window/dialogs_win.h"
#include "settings_window/messages_win.h"
#include "settings_window/preview_view_win.h"
#include "settings_window/view_win.h"

namespace mrl {

class AppWin : private MainLoop {
 public:
  explicit AppWin(HINSTANCE instance);
  AppWin(const AppWin&) = delete;
  AppWin& operator=(const AppWin&) = delete;

  /// Start-up, message loop, shutdown. `arguments` exclude the program's name. Returns the exit
  /// code.
  int run(const std::vector<std::u16string>& arguments);

  LRESULT handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  LRESULT handleClockMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handleToolbarMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handleBlackMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void openMenu(HWND window, LPARAM point);
  void paint(HWND window);

  bool prepareDrawing() override;
  void registerWindowClasses() override;
  void setTimer(LoopTimer timer, uint32_t periodMs) override;
  void killTimer(LoopTimer timer) override;
  void postCommand(int command) override;
  void quit() override;
  uint32_t processId() override;

  HINSTANCE instance;
  InstancesWin instances;  // first, so that its lock is released when all else is gone
  ClockWin clock;
  FilesWin files;
  AutomationWin automation;
  WindowSystemWin windows;
  ScreensWin screens;
  ClockWindowWin clockWindow;
  ResizeToolbarWin resizeToolbar;
  BlackScreenWin blackScreen;
  AudioPlayerWin audio;
  TrayWin tray;
  PopupMenuWin menu;
  ShellWin shell;
  SettingsViewWin settingsView;
  SettingsDialogsWin settingsDialogs;
  PreviewViewWin previewView;
  SocketsWin sockets;
  RequestQueueWin requests;
  ServiceHostWin serviceHost;
  NetworkWin network;
  FirewallRulesWin firewall;
  ClockPainterWin painter;
  App app;
  SettingsMessagesWin settingsMessages;
};

}  // namespace mrl
