// The network of a POSIX system, for tests and for the program without a desktop.
#pragma once

#include "http/sockets.h"

namespace mrl {

class SocketsPosix : public Sockets {
 public:
  std::unique_ptr<SocketSession> start() override;
};

}  // namespace mrl
