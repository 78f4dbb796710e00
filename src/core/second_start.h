// Starting the program again shows the settings of the running instance: two instances would
// overwrite each other's settings file.
#pragma once

#include "core/instances.h"

namespace mrl {

/// Returns true if a running instance was asked to show its settings, so that this one should exit;
/// false if this one should go on. Waits up to about five seconds for an instance that is just
/// ending or has no clock yet. One that can't be verified as ours stops nobody.
[[nodiscard]] bool handOver(Instances& instances);

}  // namespace mrl
