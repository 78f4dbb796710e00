// Carries a clock's drawing list out on a Direct2D target. Clock and preview differ only in the
// target, so both come through here.
#pragma once

#include <windows.h>
// After <windows.h>, which they lean on.
#include <d2d1.h>
#include <dwrite.h>

#include "base/geometry.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// Draws the whole picture on a target of `size` pixels. UI thread only. What can't be made is left
/// out. Returns true if the target is lost and must be made anew: nothing of use was drawn then.
[[nodiscard]] bool renderClock(ID2D1RenderTarget& target, IDWriteFactory& fonts,
                               const ClockPicture& picture, Size size, int dpi);

}  // namespace mrl
