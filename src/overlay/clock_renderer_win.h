// Renders a clock's drawing list on a Direct2D target. Clock and preview differ only in the target,
// so both use this.
#pragma once

#include <windows.h>
// Must come after <windows.h>.
#include <d2d1.h>
#include <dwrite.h>

#include "base/com_ref_win.h"
#include "base/geometry.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// Draws the whole picture on a target of `size` pixels. UI thread only. What can't be created is
/// left out. Returns true if the target is lost: discard the result and recreate the target.
/// `lastText` is the text of the last picture, kept for the next one: while it lives, its font
/// stays loaded, and opening that takes longer than drawing with it.
[[nodiscard]] bool renderClock(ID2D1RenderTarget& target, IDWriteFactory& fonts,
                               const ClockPicture& picture, Size size, int dpi,
                               ComRef<IDWriteTextLayout>& lastText);

}  // namespace mrl
