// The page of the remote service. UI thread.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// Shows whether the service runs, its addresses and their code. Without a window it does nothing.
void refreshRemotePage(App& app);

/// Shows the code of an address, or an empty place for an empty one. An address that is too long
/// for a code leaves the place empty too, and the user is told.
void showQrCode(App& app, const std::u16string& address);

/// The button that starts or stops the service.
void toggleRemote(App& app);
/// The first address goes to the clipboard.
void copyRemoteAddress(App& app);
void applyPort(App& app);

}  // namespace mrl
