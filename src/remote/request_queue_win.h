#pragma once

#include "remote/request_queue.h"

namespace mrl {

class RequestQueueWin : public RequestQueue {};

}  // namespace mrl
