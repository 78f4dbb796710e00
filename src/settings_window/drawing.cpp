#include "settings_window/drawing.h"

#include <algorithm>

namespace mrl {

OutlinePath outlinePath(const RoundedRect& shape) {
  const Rect& rect = shape.rect;
  const int lineWidth = shape.outline ? shape.outlineWidth : 1;
  const auto inset = static_cast<float>(lineWidth) / 2;
  const auto width = static_cast<float>(rect.width() - lineWidth);
  const auto height = static_cast<float>(rect.height() - lineWidth);
  return {static_cast<float>(rect.left) + inset, static_cast<float>(rect.top) + inset, width,
          height, std::max(std::min({2 * static_cast<float>(shape.radius), width, height}), 0.0F)};
}

}  // namespace mrl
