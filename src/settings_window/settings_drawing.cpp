#include "settings_window/settings_drawing.h"

#include <algorithm>

namespace mrl {

OutlinePath outlinePath(const Rect& rect, int radius) {
  const int width = rect.width() - 1;
  const int height = rect.height() - 1;
  return {rect.left, rect.top, width, height, std::max(std::min({2 * radius, width, height}), 0)};
}

}  // namespace mrl
