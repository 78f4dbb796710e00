// What the floating clock does when it is shown, dragged and resized. UI thread.
#pragma once

#include "core/app.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// Whether the clock is in the bright phase of a blink just now.
bool isBlinkOn(const App& app);

/// What the clock looks like now. It refers to the App's settings.
ClockPicture clockPicture(const App& app);

/// Shows the clock as it is now, above everything that is always on top, and its toolbar with it.
void showClock(App& app);

/// Hides the clock where a rule wants it out of sight, and shows what no rule hides any more. What
/// the user hid stays hidden.
void applyHideRules(App& app);

/// Moves a clock that lies wholly off the work area of its nearest monitor back into it. The new
/// place is not saved until the user moves the clock.
void correctOffScreen(App& app);

/// Keeps the toolbar of resize mode below the clock.
void placeToolbar(App& app);

/// Command 103: into resize mode, or out of it, which saves place and size. When that save fails
/// the mode stays on, so that nothing the user did is lost.
void toggleResizeMode(App& app);

/// Command 104.
void restoreDefaultSize(App& app);

/// A press anywhere on the clock drags it; the place is saved when the drag has ended.
void onClockPress(App& app);
void onClockMoveEnded(App& app);

/// The corner at a point of the screen; None outside resize mode.
CornerHit clockHitTest(const App& app, Point cursor);

/// A drag of one corner, from press to release or to the loss of the capture.
void onCornerPress(App& app, CornerHit hit);
void onCornerDrag(App& app);
void onCornerRelease(App& app);
void onCaptureLost(App& app);

void onClockSized(App& app);

/// The clock has moved to a monitor of another resolution, and has been given its size there.
void onClockDpiChanged(App& app);

}  // namespace mrl
