// A queue that the test empties by hand, or that answers each request immediately.
#pragma once

#include <functional>
#include <vector>

#include "http/request_queue.h"

namespace mrl {

class DoneEventFake : public DoneEvent {
 public:
  explicit DoneEventFake(std::vector<uint32_t>& waits, bool works) : log(waits), alive(works) {}
  void set() override { isSet = true; }
  bool wait(uint32_t limitMs) override {
    log.push_back(limitMs);
    return alive && isSet;
  }

 private:
  std::vector<uint32_t>& log;
  bool alive;
  bool isSet = false;
};

class RequestQueueFake : public RequestQueue {
 public:
  std::unique_ptr<DoneEvent> makeEvent() override {
    return std::make_unique<DoneEventFake>(waitedMs, eventsWork);
  }
  bool post(WindowHandle target, std::shared_ptr<RemoteRequest> request) override {
    if (!postWorks) return false;
    lastTarget = target;
    if (onPost) onPost(*request);
    queued.push_back(std::move(request));
    return true;
  }
  void drain() override {
    ++drains;
    if (onDrain) onDrain();
    queued.clear();
  }

  bool postWorks = true;
  bool eventsWork = true;
  std::function<void(RemoteRequest&)> onPost;  // plays a UI thread that answers immediately
  std::function<void()> onDrain;
  std::vector<std::shared_ptr<RemoteRequest>> queued;
  std::vector<uint32_t> waitedMs;
  WindowHandle lastTarget;
  int drains = 0;
};

}  // namespace mrl
