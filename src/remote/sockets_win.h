#pragma once

#include "remote/sockets.h"

namespace mrl {

class SocketsWin : public Sockets {};

}  // namespace mrl
