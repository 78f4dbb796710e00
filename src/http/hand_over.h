// The listener's half of the bridge to the UI thread, which owns all state. Either side may have to
// do without the other: the UI thread may be busy for too long, the service may be stopped or
// restarted, and the program may exit with requests still queued.
#pragma once

#include <memory>

#include "base/clock.h"
#include "http/http_response.h"
#include "http/remote_request.h"
#include "http/remote_server.h"
#include "http/request_queue.h"

namespace mrl {

/// The interfaces that the listener's thread uses; both are safe to call from there.
struct HandOverInterfaces {
  Clock& clock;
  RequestQueue& requests;
};

/// Listener's thread: creates an empty request of the service's current run.
std::shared_ptr<RemoteRequest> makeRequest(const RemoteServer& server,
                                           const HandOverInterfaces& interfaces);

/// Listener's thread: posts a filled request to the UI thread and waits for the answer. Returns a
/// 503 if the UI thread can't be reached or doesn't answer in time; in the latter case the command
/// may still run.
Answer handOver(const RemoteServer& server, const HandOverInterfaces& interfaces,
                const std::shared_ptr<RemoteRequest>& request);

}  // namespace mrl
