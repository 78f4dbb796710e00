// The network through Winsock.
#pragma once

#include "http/sockets.h"

namespace mrl {

class SocketsWin : public Sockets {
 public:
  std::unique_ptr<SocketSession> start() override;
};

}  // namespace mrl
