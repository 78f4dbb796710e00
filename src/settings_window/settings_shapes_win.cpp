#include "settings_window/settings_shapes_win.h"

#include <objbase.h>
#include <algorithm>
// After <objbase.h>, which it leans on.
#include <gdiplus.h>

#include "core/unique_handle.h"
#include "resources/resource_ids.h"

namespace mrl {
namespace {

using namespace Gdiplus::DllExports;

struct GraphicsTraits {
  static Gdiplus::GpGraphics* none() { return nullptr; }
  static void close(Gdiplus::GpGraphics* graphics) { GdipDeleteGraphics(graphics); }
};
struct FillTraits {
  static Gdiplus::GpSolidFill* none() { return nullptr; }
  static void close(Gdiplus::GpSolidFill* brush) { GdipDeleteBrush(brush); }
};
struct PenTraits {
  static Gdiplus::GpPen* none() { return nullptr; }
  static void close(Gdiplus::GpPen* pen) { GdipDeletePen(pen); }
};
struct PathTraits {
  static Gdiplus::GpPath* none() { return nullptr; }
  static void close(Gdiplus::GpPath* path) { GdipDeletePath(path); }
};
struct RegionTraits {
  static HRGN none() { return nullptr; }
  static void close(HRGN region) { DeleteObject(region); }
};
using Graphics = UniqueHandle<GraphicsTraits>;
using Fill = UniqueHandle<FillTraits>;
using Pen = UniqueHandle<PenTraits>;
using Path = UniqueHandle<PathTraits>;

Gdiplus::ARGB opaque(uint32_t rgb) { return 0xFF000000U | rgb; }

Graphics smoothOn(HDC dc) {
  Graphics graphics;
  GdipCreateFromHDC(dc, graphics.put());
  GdipSetSmoothingMode(graphics.get(), Gdiplus::SmoothingModeAntiAlias);
  return graphics;
}

Fill fillOf(uint32_t colour) {
  Fill fill;
  GdipCreateSolidFill(opaque(colour), fill.put());
  return fill;
}

Pen penOf(uint32_t colour, float width) {
  Pen pen;
  GdipCreatePen1(opaque(colour), width, Gdiplus::UnitPixel, pen.put());
  return pen;
}

Path roundPath(const RECT& rect, int radius) {
  const float x = static_cast<float>(rect.left) + 0.5F;
  const float y = static_cast<float>(rect.top) + 0.5F;
  const float width = static_cast<float>(rect.right - rect.left) - 1;
  const float height = static_cast<float>(rect.bottom - rect.top) - 1;
  const float corner = std::min({2 * static_cast<float>(radius), width, height});
  Path path;
  GdipCreatePath(Gdiplus::FillModeAlternate, path.put());
  if (corner <= 0) {
    GdipAddPathRectangle(path.get(), x, y, width, height);
    return path;
  }
  const float right = x + width - corner;
  const float bottom = y + height - corner;
  GdipAddPathArc(path.get(), x, y, corner, corner, 180, 90);
  GdipAddPathArc(path.get(), right, y, corner, corner, 270, 90);
  GdipAddPathArc(path.get(), right, bottom, corner, corner, 0, 90);
  GdipAddPathArc(path.get(), x, bottom, corner, corner, 90, 90);
  GdipClosePathFigure(path.get());
  return path;
}

/// A pen over a square, in parts of its side.
class GlyphPen {
 public:
  GlyphPen(HDC dc, const RECT& place, uint32_t glyphColour)
      : graphics(smoothOn(dc)),
        left(static_cast<float>(place.left)),
        top(static_cast<float>(place.top)),
        side(static_cast<float>(place.right - place.left)),
        colour(glyphColour),
        pen(penOf(glyphColour, std::max(side / 12, 1.4F))) {
    GdipSetPenLineCap197819(pen.get(), Gdiplus::LineCapRound, Gdiplus::LineCapRound,
                            Gdiplus::DashCapRound);
  }
  void line(float x1, float y1, float x2, float y2) {
    GdipDrawLine(graphics.get(), pen.get(), left + x1 * side, top + y1 * side, left + x2 * side,
                 top + y2 * side);
  }
  void box(float x, float y, float width, float height) {
    GdipDrawRectangle(graphics.get(), pen.get(), left + x * side, top + y * side, width * side,
                      height * side);
  }
  void arc(float x, float y, float width, float height, float start, float sweep) {
    GdipDrawArc(graphics.get(), pen.get(), left + x * side, top + y * side, width * side,
                height * side, start, sweep);
  }
  void dot(float x, float y, float diameter) {
    GdipFillEllipse(graphics.get(), fillOf(colour).get(), left + x * side, top + y * side,
                    diameter * side, diameter * side);
  }

 private:
  Graphics graphics;
  float left;
  float top;
  float side;
  uint32_t colour;
  Pen pen;
};

void drawBell(GlyphPen& pen) {
  pen.arc(0.2F, 0.14F, 0.6F, 0.64F, 180, 180);
  pen.line(0.2F, 0.45F, 0.14F, 0.76F);
  pen.line(0.14F, 0.76F, 0.86F, 0.76F);
  pen.line(0.86F, 0.76F, 0.8F, 0.45F);
  pen.arc(0.4F, 0.7F, 0.2F, 0.2F, 0, 180);
}

void drawScreen(GlyphPen& pen) {
  pen.box(0.12F, 0.14F, 0.76F, 0.58F);
  pen.line(0.5F, 0.72F, 0.5F, 0.9F);
  pen.line(0.3F, 0.9F, 0.7F, 0.9F);
  pen.line(0.39F, 0.3F, 0.64F, 0.43F);
  pen.line(0.64F, 0.43F, 0.39F, 0.56F);
}

}  // namespace

HICON programIcon(int size) {
  return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(MARLUNE_ICON),
                                       IMAGE_ICON, size, size, LR_SHARED));
}

COLORREF systemColour(uint32_t rgb) { return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

void fillRect(HDC dc, const RECT& rect, uint32_t colour) {
  SetDCBrushColor(dc, systemColour(colour));
  FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void roundRect(HDC dc, const RECT& rect, int radius, uint32_t fill, uint32_t outline,
               float outlineWidth) {
  const Graphics graphics = smoothOn(dc);
  // A frame is painted around its client area, which only the clip region leaves out.
  const UniqueHandle<RegionTraits> clip(CreateRectRgn(0, 0, 0, 0));
  if (GetClipRgn(dc, clip.get()) == 1) {
    GdipSetClipHrgn(graphics.get(), clip.get(), Gdiplus::CombineModeReplace);
  }
  const Path path = roundPath(rect, radius);
  GdipFillPath(graphics.get(), fillOf(fill).get(), path.get());
  if (outline == kNoOutline) return;
  GdipDrawPath(graphics.get(), penOf(outline, outlineWidth).get(), path.get());
}

void drawCircle(HDC dc, POINT topLeft, int diameter, uint32_t fill, uint32_t outline,
                float outlineWidth) {
  const Graphics graphics = smoothOn(dc);
  const auto x = static_cast<float>(topLeft.x);
  const auto y = static_cast<float>(topLeft.y);
  const auto width = static_cast<float>(diameter);
  if (fill != kNoOutline) {
    GdipFillEllipse(graphics.get(), fillOf(fill).get(), x, y, width, width);
  }
  if (outline != kNoOutline) {
    GdipDrawEllipse(graphics.get(), penOf(outline, outlineWidth).get(), x, y, width, width);
  }
}

void drawGlyph(HDC dc, const RECT& square, int index, uint32_t colour) {
  GlyphPen pen(dc, square, colour);
  switch (index) {
    case 0:
      pen.arc(0.12F, 0.12F, 0.76F, 0.76F, 0, 360);
      pen.line(0.5F, 0.27F, 0.5F, 0.5F);
      pen.line(0.5F, 0.5F, 0.68F, 0.62F);
      break;
    case 1:
      pen.box(0.12F, 0.16F, 0.76F, 0.66F);
      pen.line(0.32F, 0.4F, 0.68F, 0.4F);
      pen.line(0.32F, 0.58F, 0.56F, 0.58F);
      break;
    case 2: drawBell(pen); break;
    case 3:
      pen.arc(0.04F, 0.1F, 0.92F, 0.92F, 220, 100);
      pen.arc(0.23F, 0.32F, 0.54F, 0.54F, 220, 100);
      pen.dot(0.45F, 0.72F, 0.1F);
      break;
    default: drawScreen(pen); break;
  }
}

void drawLine(HDC dc, POINT from, POINT to, uint32_t colour, int width) {
  const HPEN pen = CreatePen(PS_SOLID, width, systemColour(colour));
  const HGDIOBJ before = SelectObject(dc, pen);
  MoveToEx(dc, from.x, from.y, nullptr);
  LineTo(dc, to.x, to.y);
  SelectObject(dc, before);
  DeleteObject(pen);
}

void drawText(HDC dc, const std::wstring& text, RECT rect, HFONT font, uint32_t colour,
              UINT format) {
  const HGDIOBJ before = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, systemColour(colour));
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, format);
  SelectObject(dc, before);
}

}  // namespace mrl
