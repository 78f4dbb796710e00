// A user who starts the program again wants to see it: two clocks would overwrite each other's
// settings.
#pragma once

#include "core/instances.h"

namespace mrl {

/// True when the program runs already and shows its settings: this start has nothing left to do.
/// False when this start is to go on. Waits a few seconds for a first start that is just ending or
/// has no clock yet; one that is not surely ours keeps nobody from starting.
[[nodiscard]] bool handOver(Instances& instances);

}  // namespace mrl
