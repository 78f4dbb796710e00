#include "windows/shape_distance.h"

#include <numbers>

namespace mrl {

float distanceToLine(float x, float y, float x1, float y1, float x2, float y2) {
  const float dx = x2 - x1;
  const float dy = y2 - y1;
  const float along = std::clamp(((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy), 0.0F, 1.0F);
  return std::hypot(x - x1 - along * dx, y - y1 - along * dy);
}

namespace {

/// Angles are in degrees, clockwise from the right.
float distanceToArc(float x, float y, const Stroke& arc) {
  const float middleX = arc.x + arc.a / 2;
  const float middleY = arc.y + arc.b / 2;
  constexpr float kDegree = std::numbers::pi_v<float> / 180;
  constexpr int kSteps = 64;
  float nearest = 1e9F;
  for (int i = 0; i < kSteps; ++i) {
    const auto point = [&](int step) {
      const float angle = (arc.start + arc.sweep * static_cast<float>(step) / kSteps) * kDegree;
      return std::array{middleX + arc.a / 2 * std::cos(angle),
                        middleY + arc.b / 2 * std::sin(angle)};
    };
    const auto [x1, y1] = point(i);
    const auto [x2, y2] = point(i + 1);
    nearest = std::min(nearest, distanceToLine(x, y, x1, y1, x2, y2));
  }
  return nearest;
}

}  // namespace

float distanceToStroke(float x, float y, const Stroke& stroke, float penWidth) {
  switch (stroke.kind) {
    case StrokeKind::Segment:
      return distanceToLine(x, y, stroke.x, stroke.y, stroke.a, stroke.b) - penWidth / 2;
    case StrokeKind::Box: {
      const RoundBox box{stroke.x, stroke.y, stroke.x + stroke.a, stroke.y + stroke.b, 0};
      return std::abs(box.distance(x, y)) - penWidth / 2;
    }
    case StrokeKind::Arc: return distanceToArc(x, y, stroke) - penWidth / 2;
    case StrokeKind::Dot: break;
  }
  return std::hypot(x - stroke.x - stroke.a / 2, y - stroke.y - stroke.b / 2) - stroke.a / 2;
}

Stroke inPixels(const Stroke& stroke, const Rect& square) {
  const auto side = static_cast<float>(square.width());
  Stroke scaled = stroke;
  scaled.x = stroke.x * side + static_cast<float>(square.left);
  scaled.y = stroke.y * side + static_cast<float>(square.top);
  const bool isLine = stroke.kind == StrokeKind::Segment;
  scaled.a = stroke.a * side + (isLine ? static_cast<float>(square.left) : 0);
  scaled.b = stroke.b * side + (isLine ? static_cast<float>(square.top) : 0);
  return scaled;
}

}  // namespace mrl
