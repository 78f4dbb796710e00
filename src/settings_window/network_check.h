// Checks and repairs the network access of the remote service: finds what keeps a phone from
// connecting and reports it to the user. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Checks the firewall and the network again, adds the program's rule if it is missing, and reports
/// the result. Never changes existing rules; offers to open the firewall's console instead. Blocks
/// while a message box is open. In test mode nothing is checked.
void checkAndRepairNetwork(App& app);

}  // namespace mrl
