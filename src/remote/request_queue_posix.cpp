#include "remote/request_queue_posix.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <future>

namespace mrl {
namespace {

class DoneEventPosix : public DoneEvent {
 public:
  void set() override { promise.set_value(); }
  bool wait(uint32_t limitMs) override {
    return future.wait_for(std::chrono::milliseconds(limitMs)) == std::future_status::ready;
  }

 private:
  std::promise<void> promise;
  std::future<void> future = promise.get_future();
};

}  // namespace

void DescriptorTraits::close(int descriptor) { ::close(descriptor); }

RequestQueuePosix::RequestQueuePosix() : wake(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

RequestQueuePosix::~RequestQueuePosix() { drain(); }

std::unique_ptr<DoneEvent> RequestQueuePosix::makeEvent() {
  return std::make_unique<DoneEventPosix>();
}

bool RequestQueuePosix::post(WindowHandle /*target*/, std::shared_ptr<RemoteRequest> request) {
  // The list owns its nodes only from the exchange on, so nothing before it may throw half-way.
  auto node = std::make_unique<Node>(Node{std::move(request), newest.load()});
  while (!newest.compare_exchange_weak(node->next, node.get())) {
  }
  (void)node.release();
  (void)eventfd_write(wake.get(), 1);
  return true;
}

std::vector<std::shared_ptr<RemoteRequest>> RequestQueuePosix::take() {
  eventfd_t count = 0;
  (void)eventfd_read(wake.get(), &count);
  std::vector<std::shared_ptr<RemoteRequest>> requests;
  std::unique_ptr<Node> node(newest.exchange(nullptr));
  while (node) {
    requests.push_back(std::move(node->request));
    node.reset(node->next);
  }
  std::ranges::reverse(requests);
  return requests;
}

void RequestQueuePosix::drain() { (void)take(); }

void RequestQueuePosix::wait(uint32_t limitMs) {
  pollfd asked{.fd = wake.get(), .events = POLLIN, .revents = 0};
  (void)poll(&asked, 1, static_cast<int>(limitMs));
}

}  // namespace mrl
