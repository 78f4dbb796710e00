// The preview of the clock in its true size, and the summary of what happens when the time is up.
// Both show the form's settings, applied or not. UI thread.
#pragma once

#include "core/app.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// Places the preview in its host, repaints it and the colour pickers, and updates the summary and
/// which controls can be used. Does nothing without a window.
void refreshPreview(App& app);

/// What the preview shows now. The result refers to the form's settings.
ClockPicture previewPicture(const App& app);

std::u16string expirySummary(const Settings& settings);

/// A step of one of the host's scroll bars.
void scrollPreview(App& app, PreviewBar bar, ScrollStep step);

/// A corner drag, from press to release or loss of the mouse capture; the cursor in screen pixels.
/// Each size that the preview takes meanwhile is written into the size boxes and queued as an edit.
void onPreviewCornerPress(App& app, CornerHit hit, Point cursor);
void onPreviewCornerDrag(App& app, Point cursor);
void onPreviewSized(App& app, Size pixels);
void onPreviewDragEnded(App& app);

}  // namespace mrl
