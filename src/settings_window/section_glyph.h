// The icons of the five sections as vector strokes. Lengths are fractions of the side of the square
// that an icon fills, from its top left. Constant data, any thread.
#pragma once

#include <span>

namespace mrl {

enum class StrokeKind {
  Segment,  // from (x, y) to (a, b)
  Box,      // a wide and b high
  Arc,      // in such a box, from `start` over `sweep`; degrees, clockwise from the right
  Dot,      // a filled circle in such a box
};
struct Stroke {
  StrokeKind kind;
  float x, y, a, b;
  float start = 0;
  float sweep = 0;
  bool operator==(const Stroke&) const = default;
};

/// `section` is 0 to 4.
std::span<const Stroke> sectionGlyph(int section);

/// In pixels, for a square of that side. The pen has round ends.
constexpr float glyphPenWidth(float side) { return side / 12 > 1.4F ? side / 12 : 1.4F; }

}  // namespace mrl
