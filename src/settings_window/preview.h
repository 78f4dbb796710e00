// The preview of the clock in its true size, and the sentence about what happens when the time is
// up. Both show the form, applied or not. UI thread.
#pragma once

#include "core/app.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// Places the preview in its host, repaints it and the colours beside their boxes, and writes the
/// sentence. Without a window it does nothing.
void refreshPreview(App& app);

/// What the preview shows now. It refers to the form's record.
ClockPicture previewPicture(const App& app);

std::u16string expirySummary(const Settings& settings);

/// Of the host: `bar` is one of the preview's.
void scrollPreview(App& app, Bar bar, ScrollStep step);

/// A drag of one of its corners, from press to release or to the loss of the mouse; the cursor on
/// the screen. Meanwhile each size that the preview takes is typed into the boxes.
void onPreviewCornerPress(App& app, CornerHit hit, Point cursor);
void onPreviewCornerDrag(App& app, Point cursor);
void onPreviewSized(App& app, Size pixels);
void onPreviewDragEnded(App& app);

}  // namespace mrl
