// Requests as window messages.
#pragma once

#include <windows.h>

#include "http/request_queue.h"

namespace mrl {

constexpr UINT kRemoteRequestMessage = WM_APP + 12;

class RequestQueueWin : public RequestQueue {
 public:
  std::unique_ptr<DoneEvent> makeEvent() override;
  bool post(WindowHandle target, std::shared_ptr<RemoteRequest> request) override;
  void drain() override;
};

/// What one such message carries, which is nobody's from then on. REQUIRES: each message is asked
/// once.
std::shared_ptr<RemoteRequest> requestFrom(LPARAM lParam);

}  // namespace mrl
