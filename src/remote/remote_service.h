// Starts and stops the remote service. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Finds the addresses, asks the firewall (politely, and only when `interactive`), and starts the
/// listener. Running already is success. On failure nothing runs and the user is told.
bool startRemote(App& app, bool interactive);

/// Ends the listener and joins its thread. Safe when nothing runs.
void stopRemote(App& app);

}  // namespace mrl
