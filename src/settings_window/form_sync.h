// The form's record and its controls, one into the other. UI thread. Without an open window nothing
// here has a meaning, and the two that follow the live record do nothing.
#pragma once

#include "core/app.h"

namespace mrl {

/// Reads all controls into the form's record. A box that can't be read leaves its field alone.
void syncForm(App& app);

/// Writes the form's record into all controls, and refreshes what depends on it.
void fillControls(App& app);

/// Writes the clock's size alone.
void fillSizeBoxes(App& app);

/// The clock's size, or its mode, was changed in the live record from outside the window.
void showChangedSize(App& app);
void showChangedMode(App& app);

/// Which controls can be used now.
void refreshEnableStates(App& app);

}  // namespace mrl
