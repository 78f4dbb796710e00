// The network as the listener sees it.
#pragma once

namespace mrl {

class Sockets {
 public:
  virtual ~Sockets() = default;
};

}  // namespace mrl
