// Handles the requests that the listener posts. UI thread.
#pragma once

#include "core/app.h"
#include "http/remote_request.h"

namespace mrl {

/// Runs the request and answers it. Refuses requests from an earlier run of the service and those
/// past their deadline.
void onRemoteRequest(App& app, RemoteRequest& request);

}  // namespace mrl
