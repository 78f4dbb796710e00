// Paints the clock's windows: see clock_painter_win.h.
#include "overlay/clock_painter_win.h"

#include "base/geometry_win.h"
#include "overlay/clock_renderer_win.h"

namespace mrl {
namespace {

/// Validates the window on every path, so that the system doesn't send WM_PAINT again and again.
class PaintScope {
 public:
  explicit PaintScope(HWND window) : window(window) { BeginPaint(window, &paint); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  ~PaintScope() { EndPaint(window, &paint); }

  [[nodiscard]] HDC dc() const { return paint.hdc; }

 private:
  HWND window;
  PAINTSTRUCT paint{};
};

bool isEmpty(Size size) { return size.width <= 0 || size.height <= 0; }

D2D1_RENDER_TARGET_PROPERTIES softwareTarget(D2D1_PIXEL_FORMAT format, int dpi) {
  return {D2D1_RENDER_TARGET_TYPE_SOFTWARE, format,
          static_cast<float>(dpi),          static_cast<float>(dpi),
          D2D1_RENDER_TARGET_USAGE_NONE,    D2D1_FEATURE_LEVEL_DEFAULT};
}

void showBitmap(HWND window, const ClockBitmap& bitmap) {
  RECT place{};
  GetWindowRect(window, &place);
  POINT topLeft{place.left, place.top};
  SIZE size{bitmap.size().width, bitmap.size().height};
  POINT source{0, 0};
  BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  UpdateLayeredWindow(window, nullptr, &topLeft, &size, bitmap.dc(), &source, 0, &blend, ULW_ALPHA);
}

}  // namespace

bool ClockPainterWin::createFactories() {
  return SUCCEEDED(D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory),
                                     nullptr, reinterpret_cast<void**>(drawingFactory.put()))) &&
         SUCCEEDED(DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                       reinterpret_cast<IUnknown**>(fonts.put())));
}

void ClockPainterWin::paintClock(HWND window, const ClockPicture& picture) {
  const PaintScope paint(window);
  const Size size = clientSizeOf(window);
  if (isEmpty(size)) return;
  if (renderBitmap(picture, size, dpiOf(window))) showBitmap(window, clockBitmap);
}

bool ClockPainterWin::renderBitmap(const ClockPicture& picture, Size size, int dpi) {
  if (!clockBitmap.ensure(size)) return false;
  if (!clockTarget) {
    const D2D1_RENDER_TARGET_PROPERTIES properties =
        softwareTarget({DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, dpi);
    if (FAILED(drawingFactory->CreateDCRenderTarget(&properties, clockTarget.put()))) return false;
  }
  const RECT box{0, 0, size.width, size.height};
  if (FAILED(clockTarget->BindDC(clockBitmap.dc(), &box))) return false;
  const bool targetIsLost = renderClock(*clockTarget, *fonts, picture, size, dpi, lastText);
  if (targetIsLost) clockTarget.reset();
  return !targetIsLost;
}

void ClockPainterWin::paintPreview(HWND window, const ClockPicture& picture) {
  const PaintScope paint(window);
  const Size size = clientSizeOf(window);
  if (isEmpty(size)) return;
  const int dpi = dpiOf(window);
  if (!previewTarget) {
    const D2D1_RENDER_TARGET_PROPERTIES properties =
        softwareTarget({DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_IGNORE}, dpi);
    if (FAILED(drawingFactory->CreateDCRenderTarget(&properties, previewTarget.put()))) return;
  }
  // Draws into the DC of this paint: the preview is inside a WS_EX_COMPOSITED pane.
  const RECT box{0, 0, size.width, size.height};
  if (FAILED(previewTarget->BindDC(paint.dc(), &box))) return;
  if (renderClock(*previewTarget, *fonts, picture, size, dpi, lastText)) previewTarget.reset();
}

}  // namespace mrl
