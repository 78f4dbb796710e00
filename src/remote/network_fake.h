#pragma once

#include "remote/network.h"

namespace mrl {

class NetworkFake : public Network {};

}  // namespace mrl
