// Posts requests as window messages.
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

/// Takes ownership of the request that a message carries. REQUIRES: called once per message.
std::shared_ptr<RemoteRequest> requestFrom(LPARAM lParam);

}  // namespace mrl
