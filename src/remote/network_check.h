// Check and repair of the network access. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

void checkAndRepairNetwork(App& app);

}  // namespace mrl
