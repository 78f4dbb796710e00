#pragma once

#include "remote/request_queue.h"

namespace mrl {

class RequestQueueFake : public RequestQueue {};

}  // namespace mrl
