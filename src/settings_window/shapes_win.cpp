#include "settings_window/shapes_win.h"

#include <objbase.h>
// Must come after <objbase.h>.
#include <gdiplus.h>

#include <algorithm>

#include "base/wide_win.h"
#include "resources/resource_ids.h"
#include "settings_window/section_glyph.h"

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
struct GdiPenTraits {
  static HPEN none() { return nullptr; }
  static void close(HPEN pen) { DeleteObject(pen); }
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
  // A Drawing's coordinates are pixel edges, those of GDI+ pixel centres.
  GdipTranslateWorldTransform(graphics.get(), -0.5F, -0.5F, Gdiplus::MatrixOrderPrepend);
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

Path pathOf(const RoundedRect& shape) {
  Path path;
  GdipCreatePath(Gdiplus::FillModeAlternate, path.put());
  const auto [x, y, width, height, corner] = outlinePath(shape);
  if (corner == 0) {
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

/// Paints one shape after the other.
class Painter {
 public:
  Painter(HDC target, const Fonts& windowFonts) : dc(target), fonts(windowFonts) {}

  void operator()(const Area& area) const {
    const RECT rect = systemRect(area.rect);
    SetDCBrushColor(dc, systemColour(area.colour));
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  }
  void operator()(const RoundedRect& shape) const {
    const Graphics graphics = smoothOn(dc);
    // An edit box's frame leaves out the client area by the clip region alone: pass it to GDI+.
    const UniqueHandle<RegionTraits> clip(CreateRectRgn(0, 0, 0, 0));
    if (GetClipRgn(dc, clip.get()) == 1) {
      GdipSetClipHrgn(graphics.get(), clip.get(), Gdiplus::CombineModeReplace);
    }
    const Path path = pathOf(shape);
    GdipFillPath(graphics.get(), fillOf(shape.fill).get(), path.get());
    if (!shape.outline) return;
    const auto width = static_cast<float>(shape.outlineWidth);
    GdipDrawPath(graphics.get(), penOf(*shape.outline, width).get(), path.get());
  }
  void operator()(const Ring& ring) const {
    GdipDrawEllipseI(smoothOn(dc).get(), penOf(ring.colour, static_cast<float>(ring.width)).get(),
                     ring.box.left, ring.box.top, ring.box.width(), ring.box.height());
  }
  void operator()(const Disc& disc) const {
    GdipFillEllipseI(smoothOn(dc).get(), fillOf(disc.colour).get(), disc.box.left, disc.box.top,
                     disc.box.width(), disc.box.height());
  }
  void operator()(const Line& line) const {
    const UniqueHandle<GdiPenTraits> pen(
        CreatePen(PS_SOLID, line.width, systemColour(line.colour)));
    const HGDIOBJ before = SelectObject(dc, pen.get());
    MoveToEx(dc, line.from.x, line.from.y, nullptr);
    LineTo(dc, line.to.x, line.to.y);
    SelectObject(dc, before);
  }
  void operator()(const Glyph& glyph) const {
    const Graphics graphics = smoothOn(dc);
    const auto side = static_cast<float>(glyph.square.width());
    const Pen pen = penOf(glyph.colour, glyphPenWidth(side));
    GdipSetPenLineCap197819(pen.get(), Gdiplus::LineCapRound, Gdiplus::LineCapRound,
                            Gdiplus::DashCapRound);
    for (const Stroke& stroke : sectionGlyph(glyph.section)) {
      const float x = static_cast<float>(glyph.square.left) + stroke.x * side;
      const float y = static_cast<float>(glyph.square.top) + stroke.y * side;
      const float width = stroke.a * side;
      const float height = stroke.b * side;
      switch (stroke.kind) {
        case StrokeKind::Segment:
          GdipDrawLine(graphics.get(), pen.get(), x, y,
                       static_cast<float>(glyph.square.left) + width,
                       static_cast<float>(glyph.square.top) + height);
          break;
        case StrokeKind::Box:
          GdipDrawRectangle(graphics.get(), pen.get(), x, y, width, height);
          break;
        case StrokeKind::Arc:
          GdipDrawArc(graphics.get(), pen.get(), x, y, width, height, stroke.start, stroke.sweep);
          break;
        case StrokeKind::Dot:
          GdipFillEllipse(graphics.get(), fillOf(glyph.colour).get(), x, y, width, height);
          break;
      }
    }
  }
  void operator()(const Label& label) const {
    const HGDIOBJ before = SelectObject(dc, fonts[static_cast<size_t>(label.face)].get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, systemColour(label.colour));
    const std::wstring text = wideFrom(label.text);
    const auto length = static_cast<int>(text.size());
    RECT rect = systemRect(label.rect);
    if (label.isWrapped) {
      constexpr UINT kWrapped = DT_WORDBREAK | DT_NOPREFIX;
      RECT needed = rect;  // DT_VCENTER works for a single line only
      const int height = DrawTextW(dc, text.c_str(), length, &needed, kWrapped | DT_CALCRECT);
      rect.top += std::max<LONG>((rect.bottom - rect.top - height) / 2, 0);
      DrawTextW(dc, text.c_str(), length, &rect, kWrapped);
    } else {
      DrawTextW(dc, text.c_str(), length, &rect,
                DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX |
                    (label.isCentred ? DT_CENTER : DT_LEFT));
    }
    SelectObject(dc, before);
  }
  void operator()(const FocusMark& mark) const {
    const RECT rect = systemRect(mark.rect);
    DrawFocusRect(dc, &rect);
  }
  void operator()(const ProgramIcon& icon) const {
    DrawIconEx(dc, icon.rect.left, icon.rect.top, programIcon(icon.rect.width()), icon.rect.width(),
               icon.rect.height(), 0, nullptr, DI_NORMAL);
  }

 private:
  HDC dc;
  const Fonts& fonts;
};

}  // namespace

HICON programIcon(int size) {
  return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(MARLUNE_ICON),
                                       IMAGE_ICON, size, size, LR_SHARED));
}

COLORREF systemColour(uint32_t rgb) { return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

Fonts makeFonts(int dpi) {
  Fonts fonts;
  for (size_t i = 0; i < fonts.size(); ++i) {
    const Typeface& face = kTypefaces[i];
    fonts[i] = makeFont(face.family, face.units, face.weight, dpi);
  }
  return fonts;
}

void paint(HDC dc, const Drawing& drawing, const Fonts& fonts) {
  const Painter painter(dc, fonts);
  for (const Shape& shape : drawing) std::visit(painter, shape);
}

}  // namespace mrl
