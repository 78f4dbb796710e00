// Starts and stops the remote service as the user knows it. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Finds the addresses, asks the firewall (for its permission only when `interactive`), and starts
/// the listener. Running already is success. On failure nothing runs and the user is told. In test
/// mode only this machine itself is served, and neither network nor firewall is asked.
bool startRemote(App& app, bool interactive);

/// The listener alone, at the port of the settings, on these addresses and on loopback. As
/// startServer().
[[nodiscard]] bool startServer(App& app, const std::vector<uint32_t>& addresses,
                               std::u16string& error);

/// Ends the listener and joins its thread. Safe when nothing runs.
void stopRemote(App& app);

}  // namespace mrl
