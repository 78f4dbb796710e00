// Rendering with Direct2D and DirectWrite: see clock_renderer_win.h.
#include "overlay/clock_renderer_win.h"

#include <utility>

#include "base/wide_win.h"

namespace mrl {
namespace {

/// Measures by laying the text out, and keeps the layout for drawing, in the place of the last one.
class TextLayouter : public TextMeasurer {
 public:
  TextLayouter(IDWriteFactory& fonts, float width, float height,
               ComRef<IDWriteTextLayout>& lastText)
      : fonts(fonts), width(width), height(height), layout(lastText) {}

  std::optional<float> widthOf(const ClockText& text) override {
    ComRef<IDWriteTextFormat> format;
    if (FAILED(fonts.CreateTextFormat(wideFrom(text.family).c_str(), nullptr,
                                      static_cast<DWRITE_FONT_WEIGHT>(text.weight),
                                      DWRITE_FONT_STYLE_NORMAL, DWRITE_FONT_STRETCH_NORMAL,
                                      text.size, L"zh-CN", format.put()))) {
      return std::nullopt;
    }
    format->SetWordWrapping(DWRITE_WORD_WRAPPING_NO_WRAP);
    format->SetTextAlignment(DWRITE_TEXT_ALIGNMENT_CENTER);
    format->SetParagraphAlignment(DWRITE_PARAGRAPH_ALIGNMENT_CENTER);
    const std::wstring wide = wideFrom(text.text);
    ComRef<IDWriteTextLayout> measured;
    if (FAILED(fonts.CreateTextLayout(wide.data(), static_cast<UINT32>(wide.size()), format.get(),
                                      width, height, measured.put()))) {
      return std::nullopt;
    }
    DWRITE_TEXT_METRICS metrics{};
    if (FAILED(measured->GetMetrics(&metrics))) return std::nullopt;
    layout = std::move(measured);
    return metrics.width;
  }

  /// The measured text at its final size. REQUIRES: widthOf() succeeded.
  IDWriteTextLayout* layoutOf(const ClockText& text) {
    layout->SetFontSize(text.size, {0, static_cast<UINT32>(text.text.size())});
    return layout.get();
  }

 private:
  IDWriteFactory& fonts;
  float width;
  float height;
  ComRef<IDWriteTextLayout>& layout;
};

D2D1_COLOR_F d2dFrom(const ColourF& colour) {
  return {colour.red, colour.green, colour.blue, colour.alpha};
}

D2D1_RECT_F d2dFrom(const RectF& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

void fillShape(ID2D1RenderTarget& target, const ClockDrawing& drawing, ID2D1Brush* brush) {
  const D2D1_RECT_F box = d2dFrom(drawing.box);
  const float halfWidth = drawing.box.right * 0.5F;
  const float halfHeight = drawing.box.bottom * 0.5F;
  switch (drawing.shape) {
    case ClockShape::Rectangle: target.FillRectangle(box, brush); break;
    case ClockShape::Rounded:
      target.FillRoundedRectangle({box, kCornerRadius, kCornerRadius}, brush);
      break;
    case ClockShape::Ellipse:
      target.FillEllipse({{halfWidth, halfHeight}, halfWidth, halfHeight}, brush);
      break;
  }
}

}  // namespace

bool renderClock(ID2D1RenderTarget& target, IDWriteFactory& fonts, const ClockPicture& picture,
                 Size size, int dpi, ComRef<IDWriteTextLayout>& lastText) {
  const auto unitsOf = [dpi](int pixels) {
    return static_cast<float>(pixels) * kUnitsPerInch / static_cast<float>(dpi);
  };
  const float width = unitsOf(size.width);
  const float height = unitsOf(size.height);
  TextLayouter layouter(fonts, width, height, lastText);
  const ClockDrawing drawing = drawClock(picture, width, height, layouter);

  target.SetDpi(static_cast<float>(dpi), static_cast<float>(dpi));
  target.SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE_GRAYSCALE);
  target.BeginDraw();
  const D2D1_COLOR_F clear = d2dFrom(drawing.clear);
  target.Clear(&clear);
  ComRef<ID2D1SolidColorBrush> brush;
  const D2D1_COLOR_F fill = d2dFrom(drawing.fill);
  if (SUCCEEDED(target.CreateSolidColorBrush(&fill, nullptr, brush.put()))) {
    fillShape(target, drawing, brush.get());
    if (drawing.text) {
      const D2D1_COLOR_F colour = d2dFrom(drawing.text->colour);
      brush->SetColor(&colour);
      target.DrawTextLayout({0, 0}, layouter.layoutOf(*drawing.text), brush.get(),
                            D2D1_DRAW_TEXT_OPTIONS_NONE);
    }
    const D2D1_COLOR_F handleColour = d2dFrom(kHandleColour);
    brush->SetColor(&handleColour);
    for (const RectF& handle : drawing.handles) {
      target.FillRectangle(d2dFrom(handle), brush.get());
    }
  }
  return target.EndDraw(nullptr, nullptr) == static_cast<HRESULT>(D2DERR_RECREATE_TARGET);
}

}  // namespace mrl
