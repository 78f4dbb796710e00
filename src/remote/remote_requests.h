// What the UI thread does with the requests that the listener hands over. UI thread.
#pragma once

#include "core/app.h"
#include "http/remote_request.h"

namespace mrl {

/// Carries the request out and answers it. One from an earlier run of the service, or one whose
/// deadline has passed, is refused instead.
void onRemoteRequest(App& app, RemoteRequest& request);

}  // namespace mrl
