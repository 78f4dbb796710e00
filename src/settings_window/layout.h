// Where the controls of the current page stand, and how the page scrolls. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Places everything anew for the window's present size and DPI.
void layoutPage(App& app);

/// Scrolls the page; a position outside the range counts as its nearer end. Pixels.
void scrollTo(App& app, int position);

}  // namespace mrl
