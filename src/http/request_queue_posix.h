// A lock-free queue for a UI thread without windows: for tests and the headless program.
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

  /// UI thread: removes and returns all queued requests, in the order in which they were posted.
  std::vector<std::shared_ptr<RemoteRequest>> take();
  /// UI thread: blocks until something is queued, for at most `limitMs`.
  void wait(uint32_t limitMs);
  /// Becomes readable when something is queued, for loops that wait for several descriptors.
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
