// Handles WM_PAINT of the clock and of its preview. The clock is rendered into a bitmap that
// updates its layered window; the preview is painted directly.
#pragma once

#include <windows.h>
// Must come after <windows.h>.
#include <d2d1.h>
#include <dwrite.h>

#include "base/com_ref_win.h"
#include "overlay/clock_bitmap_win.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// UI thread only. A failed paint leaves the previous picture; the next paint retries.
class ClockPainterWin {
 public:
  /// REQUIRES: called before anything is painted.
  [[nodiscard]] bool createFactories();

  /// REQUIRES: `window` is layered and its WM_PAINT is being handled.
  void paintClock(HWND window, const ClockPicture& picture);
  /// REQUIRES: the WM_PAINT of `window` is being handled.
  void paintPreview(HWND window, const ClockPicture& picture);
  /// Call when the preview's window is destroyed.
  void dropPreview() { previewTarget.reset(); }

  /// Renders the clock into its bitmap; needs no window. False if there is no new picture.
  [[nodiscard]] bool renderBitmap(const ClockPicture& picture, Size size, int dpi);
  const ClockBitmap& bitmap() const { return clockBitmap; }

 private:
  // The factories come first so that they are released last.
  ComRef<ID2D1Factory> drawingFactory;
  ComRef<IDWriteFactory> fonts;
  ComRef<IDWriteTextLayout> lastText;
  ClockBitmap clockBitmap;
  ComRef<ID2D1DCRenderTarget> clockTarget;
  ComRef<ID2D1DCRenderTarget> previewTarget;
};

}  // namespace mrl
