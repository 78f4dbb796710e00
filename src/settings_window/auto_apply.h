// Applies the user's input automatically: each edit is one field, checked, saved and adopted into
// the live settings shortly after the last key, or at once for a click. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// Delay between the last key and the attempt to apply.
inline constexpr uint64_t kEditDelayMs = 700;
/// Due time of an edit that could not be applied: the tick skips it, a forced pass retries it.
inline constexpr uint64_t kNotDue = ~uint64_t{0};

/// Queues the input of a control, and applies it at once if `immediate`. A typed port is not
/// queued: it waits for its button. Does nothing without an open window or while controls are
/// suppressed.
void markEdited(App& app, int id, bool immediate);

/// Queues an edit without applying it and without touching the status line. REQUIRES: the window is
/// open.
void queueEdit(App& app, int id, uint64_t delayMs);

/// Applies the queued edits that are due, or all of them if `force`, in the order of their ids.
void applyPending(App& app, bool force);

/// Checks and applies one queued edit. False if it stays queued: input incomplete or invalid, or
/// not saved. True otherwise, also without an open window or a queued edit, where it does nothing.
bool applyEdit(App& app, int id);

/// Clears a box's invalid mark and repaints its frame.
void clearInvalid(App& app, int id);

}  // namespace mrl
