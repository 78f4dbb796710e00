// Starts and stops the remote service as the user knows it. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Finds the addresses, asks the firewall (for its permission only when `interactive`), and starts
/// the listener. Running already is success. On failure nothing runs and the user is told. In test
/// mode only this machine itself is served, and neither network nor firewall is asked.
bool startRemote(App& app, bool interactive);

/// Ends the listener and joins its thread. Safe when nothing runs.
void stopRemote(App& app);

/// Opens the page in the browser of this computer or, where no service runs, the settings that
/// start it.
void openRemotePage(App& app);

/// Shows the address again.
void refreshRemoteAddress(App& app);

}  // namespace mrl
