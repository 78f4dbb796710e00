// Renders a clock's drawing list on a Direct2D target. Clock and preview differ only in the target,
// so both use this.
#pragma once

#include <windows.h>
// Must come after <windows.h>.
#include <d2d1.h>
#include <dwrite.h>

#include "base/geometry.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// Draws the whole picture on a target of `size` pixels. UI thread only. What can't be created is
/// left out. Returns true if the target is lost: discard the result and recreate the target.
[[nodiscard]] bool renderClock(ID2D1RenderTarget& target, IDWriteFactory& fonts,
                               const ClockPicture& picture, Size size, int dpi);

}  // namespace mrl
