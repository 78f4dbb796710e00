// The queue that carries remote requests from the listener's thread into the UI thread's own loop,
// which hands each to onRemoteRequest.
#pragma once

#include <memory>

#include "base/window_handle.h"
#include "http/remote_request.h"

namespace mrl {

class RequestQueue {
 public:
  virtual ~RequestQueue() = default;
  /// Any thread. Never null; an event that the system could not make fails every wait at once.
  [[nodiscard]] virtual std::unique_ptr<DoneEvent> makeEvent() = 0;
  /// Any thread; does not block. False when the UI thread can't be reached; nothing is kept then.
  [[nodiscard]] virtual bool post(WindowHandle target, std::shared_ptr<RemoteRequest> request) = 0;
  /// UI thread, after its loop and with the listener gone: lets go of all that is still queued, and
  /// answers none of it.
  virtual void drain() = 0;
};

}  // namespace mrl
