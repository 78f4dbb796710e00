// Distance of a point from the shapes that the settings window is drawn with; negative inside. In
// pixels; a pixel's coordinates are those of its centre.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>

#include "base/geometry.h"
#include "settings_window/section_glyph.h"

namespace mrl {

/// Pixels this near to a round or slanted edge may have any coverage.
inline constexpr float kNearEdge = 2.5F;

/// A rectangle with round corners.
struct RoundBox {
  float left, top, right, bottom, radius;

  float distance(float x, float y) const {
    const auto [dx, dy] = beyondCorner(x, y);
    return std::hypot(std::max(dx, 0.0F), std::max(dy, 0.0F)) + std::min(std::max(dx, dy), 0.0F) -
           radius;
  }
  bool isAtCorner(float x, float y) const {
    const auto [dx, dy] = beyondCorner(x, y);
    return radius > 0 && dx > -kNearEdge && dy > -kNearEdge;
  }

 private:
  std::array<float, 2> beyondCorner(float x, float y) const {
    return {std::abs(x - (left + right) / 2) - (right - left) / 2 + radius,
            std::abs(y - (top + bottom) / 2) - (bottom - top) / 2 + radius};
  }
};

float distanceToLine(float x, float y, float x1, float y1, float x2, float y2);
/// `stroke` is in pixels.
float distanceToStroke(float x, float y, const Stroke& stroke, float penWidth);
/// Converts a stroke from fractions of the square's side to pixels.
Stroke inPixels(const Stroke& stroke, const Rect& square);

}  // namespace mrl
