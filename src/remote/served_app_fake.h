// An App over fakes, served by a real listener. Sockets, queue and time source are the caller's.
#pragma once

#include "core/app_fake.h"

namespace mrl {

struct ServedApp {
  ServedApp(Sockets& sockets, RequestQueue& requests, Clock& clock)
      : app(platform(fakes.app.platform, sockets, requests, clock)) {}

  AppFake fakes;  // its App is unused
  App app;

 private:
  static Platform platform(const Platform& from, Sockets& sockets, RequestQueue& requests,
                           Clock& clock) {
    return {.clock = clock,
            .files = from.files,
            .automation = from.automation,
            .windows = from.windows,
            .screens = from.screens,
            .loop = from.loop,
            .clockWindow = from.clockWindow,
            .resizeToolbar = from.resizeToolbar,
            .blackScreen = from.blackScreen,
            .audio = from.audio,
            .tray = from.tray,
            .menu = from.menu,
            .shell = from.shell,
            .settingsView = from.settingsView,
            .settingsDialogs = from.settingsDialogs,
            .previewView = from.previewView,
            .sockets = sockets,
            .requests = requests,
            .serviceHost = from.serviceHost,
            .network = from.network,
            .firewall = from.firewall,
            .instances = from.instances};
  }
};

}  // namespace mrl
