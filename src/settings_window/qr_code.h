// The QR code of the remote's address. Any thread.
#pragma once

#include <string>
#include <vector>

namespace mrl {

/// Square, row by row; true is a dark module. Empty if there is no code.
using QrMatrix = std::vector<std::vector<bool>>;

/// Encodes `text` as UTF-8 with medium error correction, or better if the code gets no larger.
/// False, with an empty `matrix`, if the text is too long. Does not throw.
[[nodiscard]] bool encodeQrCode(const std::u16string& text, QrMatrix& matrix);

/// The placement of a matrix of `rows` rows in a control: pixels per module, and the top left
/// corner. The control's white background is the quiet zone, unless the control is too small.
struct QrPlace {
  int modulePixels = 1;
  int left = 0;
  int top = 0;
  bool operator==(const QrPlace&) const = default;
};
QrPlace placeQrCode(int width, int height, int rows);

}  // namespace mrl
