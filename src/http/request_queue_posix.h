// A queue without locks for a UI thread that is no window's: tests, and the program without a
// desktop.
#pragma once

#include <atomic>
#include <vector>

#include "base/unique_handle.h"
#include "http/request_queue.h"

namespace mrl {

struct DescriptorTraits {
  static int none() { return -1; }
  static void close(int descriptor);
};

class RequestQueuePosix : public RequestQueue {
 public:
  RequestQueuePosix();
  RequestQueuePosix(const RequestQueuePosix&) = delete;
  RequestQueuePosix& operator=(const RequestQueuePosix&) = delete;
  ~RequestQueuePosix() override;

  std::unique_ptr<DoneEvent> makeEvent() override;
  bool post(WindowHandle target, std::shared_ptr<RemoteRequest> request) override;
  void drain() override;

  /// UI thread: all that is queued, in the order in which it was posted.
  std::vector<std::shared_ptr<RemoteRequest>> take();
  /// UI thread: blocks until something is queued, `limitMs` at most.
  void wait(uint32_t limitMs);
  /// Becomes readable when something is queued, for a loop that waits for more than this.
  [[nodiscard]] int descriptor() const { return wake.get(); }

 private:
  struct Node {
    std::shared_ptr<RemoteRequest> request;
    Node* next;
  };
  std::atomic<Node*> newest = nullptr;
  UniqueHandle<DescriptorTraits> wake;
};

}  // namespace mrl
