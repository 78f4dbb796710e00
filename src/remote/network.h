// The networks that this computer is connected to.
#pragma once

namespace mrl {

class Network {
 public:
  virtual ~Network() = default;
};

}  // namespace mrl
