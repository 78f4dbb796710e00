// The status poll: whether a show is running, of which document, on which slide, and whether the
// document last shown is still open.
#pragma once

#include "presentation/automation_access.h"
#include "presentation/show_status.h"

namespace mrl {

/// Does one full poll. UI thread; may block while a presentation program is busy, so the caller
/// limits how often. Never fails: what can't be read stays empty or 0. Keeps the application that
/// has a show and remembers its document, both beyond the end of the show.
ShowStatus pollShowStatus(const PresentationAccess& access, AutomationState& automation);

}  // namespace mrl
