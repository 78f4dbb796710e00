// The page of the remote service. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Shows whether the service runs, its addresses and their code. Without a window it does nothing.
void refreshRemotePage(App& app);

/// The button that starts or stops the service.
void toggleRemote(App& app);
/// The first address goes to the clipboard.
void copyRemoteAddress(App& app);
void applyPort(App& app);

}  // namespace mrl
