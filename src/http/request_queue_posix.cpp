#include "http/request_queue_posix.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <semaphore>
#include <thread>

namespace mrl {
namespace {

constexpr std::chrono::microseconds kSoon{50};

/// Polls for a moment before sleeping: the other thread is often done within microseconds, and
/// yielding a few times is cheaper than being put to sleep and woken. On a busy machine a single
/// yield may take longer than kSoon; the loop then ends after it.
template <class Condition>
bool spinUntil(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + kSoon;
  do {
    if (condition()) return true;
    std::this_thread::yield();
  } while (std::chrono::steady_clock::now() < end);
  return false;
}

class DoneEventPosix : public DoneEvent {
 public:
  void set() override { isSet.release(); }
  bool wait(uint32_t limitMs) override {
    const bool was = (limitMs > 0 && spinUntil([this] { return isSet.try_acquire(); })) ||
                     isSet.try_acquire_for(std::chrono::milliseconds(limitMs));
    if (was) isSet.release();  // a set event stays set
    return was;
  }

 private:
  std::binary_semaphore isSet{0};
};

}  // namespace

void DescriptorTraits::close(int descriptor) { ::close(descriptor); }

RequestQueuePosix::RequestQueuePosix() : wake(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

RequestQueuePosix::~RequestQueuePosix() { drain(); }

std::unique_ptr<DoneEvent> RequestQueuePosix::makeEvent() {
  return std::make_unique<DoneEventPosix>();
}

bool RequestQueuePosix::post(WindowHandle /*target*/, std::shared_ptr<RemoteRequest> request) {
  // The list owns the node only after the exchange; until then the unique_ptr does.
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
  if (spinUntil([this] { return newest.load() != nullptr; })) return;
  pollfd asked{.fd = wake.get(), .events = POLLIN, .revents = 0};
  (void)poll(&asked, 1, static_cast<int>(limitMs));
}

}  // namespace mrl
