// The code of the connection address. Any thread.
#pragma once

#include <string>
#include <vector>

namespace mrl {

/// A row per line of modules, as many as there are columns; true is a dark one. Empty: none.
using QrMatrix = std::vector<std::vector<bool>>;

/// Encodes `text` as UTF-8 with medium correction, or better where it costs no space. False, and
/// `matrix` empty, when it is too long. No exception leaves it.
[[nodiscard]] bool encodeQrCode(const std::u16string& text, QrMatrix& matrix);

/// Where a matrix of `rows` rows stands in a control: pixels per module, and the top left corner.
/// The control's white background is the quiet zone, unless it is too small for that.
struct QrPlace {
  int modulePixels = 1;
  int left = 0;
  int top = 0;
  bool operator==(const QrPlace&) const = default;
};
QrPlace placeQrCode(int width, int height, int rows);

}  // namespace mrl
