#pragma once

#include "remote/sockets.h"

namespace mrl {

class SocketsFake : public Sockets {};

}  // namespace mrl
