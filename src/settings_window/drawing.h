// The shapes that the settings window's painter can draw. Pixels; colours are 0xRRGGBB. Plain
// values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/geometry.h"

namespace mrl {

enum class Face { Body, BodyStrong, Small, PageTitle, SectionTitle, Digits };

/// With sharp edges.
struct Area {
  Rect rect;
  uint32_t colour = 0;
  bool operator==(const Area&) const = default;
};
struct RoundedRect {
  Rect rect;
  int radius = 0;
  uint32_t fill = 0;
  std::optional<uint32_t> outline;
  int outlineWidth = 1;
  bool operator==(const RoundedRect&) const = default;
};
struct Ring {
  Rect box;
  uint32_t colour = 0;
  int width = 1;
  bool operator==(const Ring&) const = default;
};
struct Disc {
  Rect box;
  uint32_t colour = 0;
  bool operator==(const Disc&) const = default;
};
struct Line {
  Point from;
  Point to;
  uint32_t colour = 0;
  int width = 1;
  bool operator==(const Line&) const = default;
};
/// The icon of a section: see section_glyph.h.
struct Glyph {
  Rect square;
  int section = 0;
  uint32_t colour = 0;
  bool operator==(const Glyph&) const = default;
};
/// One line, cut with an ellipsis; vertically centred.
struct Label {
  std::u16string text;
  Rect rect;
  Face face = Face::Body;
  uint32_t colour = 0;
  bool isCentred = false;  // horizontally too
  bool isWrapped = false;  // wrapped into lines instead; those that don't fit are cut off
  bool operator==(const Label&) const = default;
};
/// The system's dotted rectangle.
struct FocusMark {
  Rect rect;
  bool operator==(const FocusMark&) const = default;
};
struct ProgramIcon {
  Rect rect;
  bool operator==(const ProgramIcon&) const = default;
};

using Shape =
    std::variant<Area, RoundedRect, Ring, Disc, Line, Glyph, Label, FocusMark, ProgramIcon>;
/// Painted in this order.
using Drawing = std::vector<Shape>;

/// Units of 1/96 inch to pixels.
struct Scale {
  int dpi = kUnitsPerInch;
  int operator()(int units) const { return toPixels(units, dpi); }
};

/// By the same amount on every side.
constexpr Rect insetBy(const Rect& rect, int pixels) {
  return {rect.left + pixels, rect.top + pixels, rect.right - pixels, rect.bottom - pixels};
}
constexpr Rect wholeOf(Size size) { return {0, 0, size.width, size.height}; }
constexpr Rect squareAt(Point topLeft, int side) {
  return {topLeft.x, topLeft.y, topLeft.x + side, topLeft.y + side};
}

/// The path of a rounded rectangle's outline: half the pen's width inside the rectangle, so that
/// the outline covers the outermost pixels and is not clipped at the window's edge. Corners of 0
/// are sharp.
struct OutlinePath {
  float x = 0;
  float y = 0;
  float width = 0;
  float height = 0;
  float corner = 0;  // diameter
  bool operator==(const OutlinePath&) const = default;
};
OutlinePath outlinePath(const RoundedRect& shape);

}  // namespace mrl
