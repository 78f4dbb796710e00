// The status poll: whether a show is running, of which document, on which slide, and whether the
// document last shown is still open.
#pragma once

#include "presentation/automation_access.h"
#include "presentation/show_status.h"

namespace mrl {

/// One full poll. UI thread; may block while a presentation program is busy, so the caller limits
/// how often. Never fails: what can't be read stays empty or 0. Adopts the application that shows
/// something and remembers its document; forgets neither when the show ends.
ShowStatus pollShowStatus(const PresentationAccess& access, AutomationState& automation);

}  // namespace mrl
