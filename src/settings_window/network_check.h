// Check and repair of the network access: what stands in a phone's way, told to the user. UI
// thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Asks firewall and network anew and leads the user on. Rules of others are never changed; the
/// firewall's own console is opened for them if the user wants that. Blocks while a box is open.
void checkAndRepairNetwork(App& app);

}  // namespace mrl
