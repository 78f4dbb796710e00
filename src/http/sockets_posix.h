// The network on POSIX systems, for tests and the headless program.
#pragma once

#include "http/sockets.h"

namespace mrl {

class SocketsPosix : public Sockets {
 public:
  std::unique_ptr<SocketSession> start() override;
};

}  // namespace mrl
