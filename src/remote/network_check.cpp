#include "remote/network_check.h"

namespace mrl {

void checkAndRepairNetwork(App& /*app*/) {}

}  // namespace mrl
