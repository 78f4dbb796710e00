// What the controls of the settings window do. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// A control's notification, or a command of the dialog keys. False when it means nothing and is
/// left to the system. `notification` is one of the view's, or any other number.
bool onSettingsCommand(App& app, int id, int notification);

}  // namespace mrl
