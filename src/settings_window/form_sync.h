// Copies between the form's settings and its controls. UI thread. REQUIRES an open window, except
// for showChangedSize() and showChangedMode(), which do nothing without one.
#pragma once

#include "core/app.h"

namespace mrl {

/// Reads all controls into the form's settings. A box that can't be parsed leaves its field
/// unchanged.
void syncForm(App& app);

/// Writes the form's settings into all controls, and refreshes the preview and what can be used.
void fillControls(App& app);

/// Writes only the two boxes of the clock's size.
void fillSizeBoxes(App& app);

/// Call when the clock's size, or the automatic or manual mode, was changed in the live settings
/// other than by a field of this form: copies it into the form's settings and the controls.
void showChangedSize(App& app);
void showChangedMode(App& app);

/// Enables or disables the controls that depend on other settings, a selection or the service.
void refreshEnableStates(App& app);

}  // namespace mrl
