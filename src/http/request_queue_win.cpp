#include "http/request_queue_win.h"

#include <utility>

#include "base/geometry_win.h"
#include "base/kernel_handle_win.h"

namespace mrl {
namespace {

/// Without a handle set() and every wait fail at once, as the interface promises.
class DoneEventWin : public DoneEvent {
 public:
  void set() override { SetEvent(event.get()); }
  bool wait(uint32_t limitMs) override {
    return WaitForSingleObject(event.get(), limitMs) == WAIT_OBJECT_0;
  }

 private:
  KernelHandle event{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

/// Carries a shared_ptr through the message queue.
struct RequestHolder {
  std::shared_ptr<RemoteRequest> request;
};

}  // namespace

std::unique_ptr<DoneEvent> RequestQueueWin::makeEvent() { return std::make_unique<DoneEventWin>(); }

bool RequestQueueWin::post(WindowHandle target, std::shared_ptr<RemoteRequest> request) {
  auto holder = std::make_unique<RequestHolder>(RequestHolder{std::move(request)});
  const auto lParam = reinterpret_cast<LPARAM>(holder.get());
  if (!PostMessageW(windowFrom(target), kRemoteRequestMessage, 0, lParam)) return false;
  (void)holder.release();  // now owned by the message
  return true;
}

void RequestQueueWin::drain() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, kRemoteRequestMessage, kRemoteRequestMessage, PM_REMOVE)) {
    (void)requestFrom(message.lParam);
  }
}

std::shared_ptr<RemoteRequest> requestFrom(LPARAM lParam) {
  const std::unique_ptr<RequestHolder> holder(reinterpret_cast<RequestHolder*>(lParam));
  return std::move(holder->request);
}

}  // namespace mrl
