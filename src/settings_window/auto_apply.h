// Input takes effect by itself: one edit is one field of the live record, saved and adopted a
// moment after the last key, or at once for a click. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// How long after the last key an edit waits.
inline constexpr uint64_t kEditDelayMs = 700;
/// The due time of an edit that waits for a forced pass: it can't be applied as it stands.
inline constexpr uint64_t kNotDue = ~uint64_t{0};

/// Books the input of a control; applies it at once when `immediate`.
void markEdited(App& app, int id, bool immediate);

/// Books without a word and without applying. REQUIRES: the window is open.
void bookEdit(App& app, int id, uint64_t delayMs);

/// Applies what is due, or everything when `force`.
void applyPending(App& app, bool force);

/// Checks and applies one booked edit. True when it is done with. Without an open window, or with
/// nothing booked, it does nothing and gives true.
bool applyEdit(App& app, int id);

/// Takes the red off a box, on the screen too.
void clearInvalid(App& app, int id);

}  // namespace mrl
