// The form's record and its controls, one into the other. UI thread. REQUIRES: the window is open.
#pragma once

#include "core/app.h"

namespace mrl {

/// Reads all controls into the form's record. A box that can't be read leaves its field alone.
void syncForm(App& app);

/// Writes the form's record into all controls, and refreshes what depends on it.
void fillControls(App& app);

/// Which controls can be used now.
void refreshEnableStates(App& app);

}  // namespace mrl
