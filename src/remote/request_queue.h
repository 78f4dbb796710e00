// The queue that carries remote requests from the listener's thread into the UI thread's own loop.
#pragma once

namespace mrl {

class RequestQueue {
 public:
  virtual ~RequestQueue() = default;
};

}  // namespace mrl
