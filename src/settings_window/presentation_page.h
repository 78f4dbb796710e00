// The page of the presentations: a folder's decks, and the show. reloadFileList() is in
// settings_form.h. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// The selected deck is excluded from timing, or no longer; saved at once.
void toggleSelectedExclusion(App& app);

/// Carries out one of the page's buttons by its id. False when it is none of them.
bool onPresentationButton(App& app, int id);

}  // namespace mrl
