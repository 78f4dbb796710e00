// How the clock behaves when it is shown, hidden, dragged and resized. UI thread.
#pragma once

#include "core/app.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// Whether a blink is in its bright phase now.
bool isBlinkOn(const App& app);

/// What the clock looks like now. References the App's settings.
ClockPicture clockPicture(const App& app);

/// The same for a paint that begins now. If the last tick saw something else, the next one paints
/// again.
ClockPicture pictureToPaint(App& app);

/// Shows the clock above all always-on-top windows, repaints it and moves its toolbar to it.
void showClock(App& app);

/// Hides the clock while a hide rule applies and shows it again afterwards. A clock that the user
/// hid stays hidden.
void applyHideRules(App& app);

/// Moves a clock that lies wholly off the work area of its nearest monitor back into it. Not saved
/// until the user moves or resizes the clock.
void correctOffScreen(App& app);

/// Keeps the toolbar of resize mode below the clock.
void placeToolbar(App& app);

/// kCommandToggleResizeMode. Leaving saves position and size; if the save fails we stay in resize
/// mode, so that nothing is lost.
void toggleResizeMode(App& app);

/// kCommandDefaultSize.
void restoreDefaultSize(App& app);

/// A press on the clock drags it; the position is saved when the drag ends.
void onClockPress(App& app);
void onClockMoveEnded(App& app);

/// The corner at a screen point; None outside resize mode.
CornerHit clockHitTest(const App& app, Point cursor);

/// A corner drag, from the press to the release or the loss of the mouse capture.
void onCornerPress(App& app, CornerHit hit);
void onCornerDrag(App& app);
void onCornerRelease(App& app);
void onCaptureLost(App& app);

void onClockSized(App& app);

/// The clock's DPI changed, and the clock has its new size already.
void onClockDpiChanged(App& app);

}  // namespace mrl
