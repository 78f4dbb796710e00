// An App over fakes, served by a real listener. Sockets, queue and time source are the caller's.
#pragma once

#include "core/app_fake.h"

namespace mrl {

struct ServedApp {
  ServedApp(Sockets& sockets, RequestQueue& requests, Clock& clock)
      : app(doors(fakes.app.platform, sockets, requests, clock)) {}

  AppFake fakes;  // its App is unused
  App app;

 private:
  static Platform doors(const Platform& from, Sockets& sockets, RequestQueue& requests,
                        Clock& clock) {
    return {clock,     from.files,       from.automation,    from.windows,      from.screens,
            from.loop, from.clockWindow, from.resizeToolbar, from.blackScreen,  from.audio,
            from.tray, from.menu,        from.shell,         from.settingsView, sockets,
            requests,  from.serviceHost, from.network,       from.firewall,     from.instances};
  }
};

}  // namespace mrl
