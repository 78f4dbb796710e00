#include "remote/remote_service.h"

namespace mrl {

bool startRemote(App& app, bool /*interactive*/) {
  std::u16string error;
  return startServer(app, {}, error);
}

void stopRemote(App& app) { stopServer(app.remote); }

}  // namespace mrl
