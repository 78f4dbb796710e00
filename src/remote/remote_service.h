// Starts and stops the remote service for the user. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Finds the addresses, checks the firewall (requests its permission only if `interactive`) and
/// starts the listener. True if already running. On failure nothing is running and setStatus()
/// reports the reason. In test mode listens on loopback only and skips network and firewall.
bool startRemote(App& app, bool interactive);

/// Starts only the listener, on the port from the settings, on loopback and these addresses.
/// Otherwise like the other startServer().
[[nodiscard]] bool startServer(App& app, const std::vector<uint32_t>& addresses,
                               std::u16string& error);

/// Stops the listener and joins its thread. Safe if nothing is running.
void stopRemote(App& app);

}  // namespace mrl
