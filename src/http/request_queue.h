// Carries remote requests from the listener's thread to the UI thread's message loop, which passes
// each to onRemoteRequest.
#pragma once

#include <memory>

#include "base/window_handle.h"
#include "http/remote_request.h"

namespace mrl {

class RequestQueue {
 public:
  virtual ~RequestQueue() = default;
  /// Any thread. Never null; if the system could not create the event, every wait fails at once.
  [[nodiscard]] virtual std::unique_ptr<DoneEvent> makeEvent() = 0;
  /// Any thread; does not block. False if the UI thread can't be reached; the request is then
  /// dropped.
  [[nodiscard]] virtual bool post(WindowHandle target, std::shared_ptr<RemoteRequest> request) = 0;
  /// UI thread, after its message loop and after the listener has stopped: releases all queued
  /// requests unanswered.
  virtual void drain() = 0;
};

}  // namespace mrl
