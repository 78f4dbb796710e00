// An App whose interfaces are all fakes, for tests and benchmarks.
#pragma once

#include "base/clock_fake.h"
#include "core/app.h"
#include "core/audio_player_fake.h"
#include "core/black_screen_fake.h"
#include "core/instances_fake.h"
#include "core/main_loop_fake.h"
#include "core/popup_menu_fake.h"
#include "core/screens_fake.h"
#include "core/shell_fake.h"
#include "core/tray_fake.h"
#include "http/request_queue_fake.h"
#include "http/service_host_fake.h"
#include "http/sockets_fake.h"
#include "overlay/clock_window_fake.h"
#include "overlay/resize_toolbar_fake.h"
#include "presentation/presentation_fake.h"
#include "remote/firewall_rules_fake.h"
#include "remote/network_fake.h"
#include "settings_window/dialogs_fake.h"
#include "settings_window/preview_view_fake.h"
#include "settings_window/view_fake.h"

namespace mrl {

struct AppFake {
  AppFake();
  ~AppFake();

  ClockFake clock;
  PresentationFake outside;
  ScreensFake screens;
  MainLoopFake loop;
  ClockWindowFake clockWindow;
  ResizeToolbarFake toolbar;
  BlackScreenFake blackScreen;
  AudioPlayerFake audio;
  TrayFake tray;
  PopupMenuFake menu;
  ShellFake shell;
  SettingsViewFake settingsView;
  SettingsDialogsFake settingsDialogs{settingsView};
  PreviewViewFake previewView{settingsView};
  SocketsFake sockets;
  RequestQueueFake requests;
  ServiceHostFake serviceHost;
  NetworkFake network;
  FirewallRulesFake firewall;
  InstancesFake instances;
  App app{platform(outside.files, audio)};

  /// All interfaces; the caller chooses the two that may be real.
  Platform platform(Files& files, AudioPlayer& player) {
    return {.clock = clock,
            .files = files,
            .automation = outside.automation,
            .windows = outside.windows,
            .screens = screens,
            .loop = loop,
            .clockWindow = clockWindow,
            .resizeToolbar = toolbar,
            .blackScreen = blackScreen,
            .audio = player,
            .tray = tray,
            .menu = menu,
            .shell = shell,
            .settingsView = settingsView,
            .settingsDialogs = settingsDialogs,
            .previewView = previewView,
            .sockets = sockets,
            .requests = requests,
            .serviceHost = serviceHost,
            .network = network,
            .firewall = firewall,
            .instances = instances};
  }
};

}  // namespace mrl
