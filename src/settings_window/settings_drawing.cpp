#include "settings_window/settings_drawing.h"

#include <algorithm>

namespace mrl {

OutlinePath outlinePath(const Rect& rect, int radius) {
  const auto width = static_cast<float>(rect.width() - 1);
  const auto height = static_cast<float>(rect.height() - 1);
  return {static_cast<float>(rect.left) + 0.5F, static_cast<float>(rect.top) + 0.5F, width, height,
          std::max(std::min({2 * static_cast<float>(radius), width, height}), 0.0F)};
}

}  // namespace mrl
