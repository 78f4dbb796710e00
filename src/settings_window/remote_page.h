// The settings window's page for the remote service. UI thread.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// Shows whether the service runs, its addresses and their QR code. Does nothing without a window.
void refreshRemotePage(App& app);

/// Shows the QR code of an address; blank if the address is empty. If it is too long for a code,
/// blank too, and the status line says so.
void showQrCode(App& app, const std::u16string& address);

/// Starts or stops the service and reports the result in the status line.
void toggleRemote(App& app);
/// Copies the first, best address to the clipboard.
void copyRemoteAddress(App& app);
void applyPort(App& app);

}  // namespace mrl
