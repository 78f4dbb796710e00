// Dispatches the notifications of the settings window's controls. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Handles a control's notification, or a command of the dialog keys (as kClicked). False if it is
/// left to the system. `notification` is a Notification or any other number.
bool onSettingsCommand(App& app, int id, int notification);

}  // namespace mrl
