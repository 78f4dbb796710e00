// The network through Winsock.
#pragma once

#include "remote/sockets.h"

namespace mrl {

class SocketsWin : public Sockets {
 public:
  std::unique_ptr<SocketSession> start() override;
};

}  // namespace mrl
