#pragma once

#include "remote/network.h"

namespace mrl {

class NetworkWin : public Network {};

}  // namespace mrl
