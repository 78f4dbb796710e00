#include "remote/remote_service.h"

namespace mrl {

bool startRemote(App& app, bool /*interactive*/) { return app.remote.running; }

void stopRemote(App& app) {
  app.remote.running = false;
  ++app.remote.generation;
}

}  // namespace mrl
