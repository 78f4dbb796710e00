// The listener's half of the bridge to the UI thread, which owns all state. Either side may
// lose the other: the UI thread can be busy for too long, the service can be stopped or restarted,
// and the program can end with requests still queued.
#pragma once

#include <memory>

#include "base/clock.h"
#include "http/http_response.h"
#include "http/remote_request.h"
#include "http/remote_server.h"
#include "http/request_queue.h"

namespace mrl {

/// What the listener's thread reaches of the program. All of it may be called from there.
struct HandOverDoors {
  Clock& clock;
  RequestQueue& requests;
};

/// Listener's thread: a request of the service's present run, not yet filled.
std::shared_ptr<RemoteRequest> makeRequest(const RemoteServer& server, const HandOverDoors& doors);

/// Listener's thread: hands a filled request to the UI thread and waits for what comes back.
Answer handOver(const RemoteServer& server, const HandOverDoors& doors,
                const std::shared_ptr<RemoteRequest>& request);

}  // namespace mrl
