// Answers WM_PAINT of the clock and of its preview. The clock is painted into a bitmap which is
// handed to the desktop as a layered window; the preview is painted on its window.
#pragma once

#include <windows.h>
// After <windows.h>, which they lean on.
#include <d2d1.h>
#include <dwrite.h>

#include "base/com_ref_win.h"
#include "overlay/clock_bitmap_win.h"
#include "overlay/clock_drawing.h"

namespace mrl {

/// UI thread only. A paint that fails leaves the last picture; the next paint tries again.
class ClockPainterWin {
 public:
  /// REQUIRES: called before anything is painted.
  [[nodiscard]] bool createFactories();

  /// REQUIRES: `window` is layered and its WM_PAINT is being handled.
  void paintClock(HWND window, const ClockPicture& picture);
  /// REQUIRES: the WM_PAINT of `window` is being handled.
  void paintPreview(HWND window, const ClockPicture& picture);
  /// To be called when the preview's window goes.
  void dropPreview() { previewTarget.reset(); }

  /// Paints the clock's bitmap, without any window. False if there is no new picture.
  [[nodiscard]] bool renderBitmap(const ClockPicture& picture, Size size, int dpi);
  const ClockBitmap& bitmap() const { return clockBitmap; }

 private:
  // The factories go last.
  ComRef<ID2D1Factory> drawingFactory;
  ComRef<IDWriteFactory> fonts;
  ClockBitmap clockBitmap;
  ComRef<ID2D1DCRenderTarget> clockTarget;
  ComRef<ID2D1DCRenderTarget> previewTarget;
};

}  // namespace mrl
