// Size and position of the clock: see clock_geometry.h.
#include "overlay/clock_geometry.h"

#include <algorithm>

namespace mrl {
namespace {

constexpr int kGripUnits = 12;
constexpr int kCorrectionPixels = 30;
constexpr int kFirstRunMarginUnits = 30;
constexpr int kToolbarGapUnits = 6;

}  // namespace

Size clockPixels(Size units, int dpi) {
  return {toPixels(units.width, dpi), toPixels(units.height, dpi)};
}

Size clockUnits(Size pixels, int dpi) {
  return {toUnits(pixels.width, dpi), toUnits(pixels.height, dpi)};
}

SizeLimits clockSizeLimits(int dpi) {
  return {clockPixels(kSmallestClockUnits, dpi), clockPixels(kLargestClockUnits, dpi)};
}

CornerHit hitTest(Point cursor, const Rect& window, int dpi) {
  const int grip = toPixels(kGripUnits, dpi);
  const bool atLeft = cursor.x - window.left < grip;
  const bool atTop = cursor.y - window.top < grip;
  const bool atRight = window.right - cursor.x < grip;
  const bool atBottom = window.bottom - cursor.y < grip;
  if (atLeft && atTop) return CornerHit::TopLeft;
  if (atRight && atTop) return CornerHit::TopRight;
  if (atLeft && atBottom) return CornerHit::BottomLeft;
  if (atRight && atBottom) return CornerHit::BottomRight;
  return CornerHit::None;
}

CornerHit cornerFrom(int hitAnswer) {
  switch (const auto hit = static_cast<CornerHit>(hitAnswer)) {
    case CornerHit::TopLeft:
    case CornerHit::TopRight:
    case CornerHit::BottomLeft:
    case CornerHit::BottomRight: return hit;
    default: return CornerHit::None;
  }
}

Rect dragCorner(const Rect& start, CornerHit hit, Point way, int dpi, bool isPreview) {
  const bool fromLeft = hit == CornerHit::TopLeft || hit == CornerHit::BottomLeft;
  const bool fromTop = hit == CornerHit::TopLeft || hit == CornerHit::TopRight;
  const SizeLimits limits = clockSizeLimits(dpi);
  const int width = std::clamp(start.width() + (fromLeft ? -way.x : way.x), limits.smallest.width,
                               limits.largest.width);
  const int height = std::clamp(start.height() + (fromTop ? -way.y : way.y), limits.smallest.height,
                                limits.largest.height);
  const int left = fromLeft && !isPreview ? start.right - width : start.left;
  const int top = fromTop && !isPreview ? start.bottom - height : start.top;
  return {left, top, left + width, top + height};
}

Rect draggedTo(Point cursor, const CornerDrag& drag, int dpi, bool isPreview) {
  const Point way{cursor.x - drag.cursor.x, cursor.y - drag.cursor.y};
  return dragCorner(drag.rect, drag.hit, way, dpi, isPreview);
}

std::optional<Point> offScreenCorrection(const Rect& window, const Rect& workArea) {
  const bool overlaps = window.left < workArea.right && window.right > workArea.left &&
                        window.top < workArea.bottom && window.bottom > workArea.top;
  if (overlaps) return std::nullopt;
  return Point{workArea.left + kCorrectionPixels, workArea.top + kCorrectionPixels};
}

Point firstRunPlace(const Rect& workArea, int widthUnits, int dpi) {
  return {workArea.right - toPixels(widthUnits + kFirstRunMarginUnits, dpi),
          workArea.top + toPixels(kFirstRunMarginUnits, dpi)};
}

Point toolbarPlace(const Rect& clock, int dpi) {
  return {clock.left, clock.bottom + toPixels(kToolbarGapUnits, dpi)};
}

}  // namespace mrl
