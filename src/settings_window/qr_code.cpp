#include "settings_window/qr_code.h"

#include <algorithm>
#include <exception>
#include <qrcodegen.hpp>

#include "base/text.h"

namespace mrl {
namespace {

constexpr int kQuietModules = 8;  // four on every side

}  // namespace

bool encodeQrCode(const std::u16string& text, QrMatrix& matrix) {
  matrix.clear();
  try {
    const auto code =
        qrcodegen::QrCode::encodeText(utf8From(text).c_str(), qrcodegen::QrCode::Ecc::MEDIUM);
    const int size = code.getSize();
    for (int y = 0; y < size; ++y) {
      std::vector<bool>& row = matrix.emplace_back();
      for (int x = 0; x < size; ++x) row.push_back(code.getModule(x, y));
    }
    return true;
  } catch (const std::exception&) {
    matrix.clear();
    return false;
  }
}

QrPlace placeQrCode(int width, int height, int rows) {
  const int pixels = std::max(std::min(width, height) / (rows + kQuietModules), 1);
  return {pixels, (width - pixels * rows) / 2, (height - pixels * rows) / 2};
}

}  // namespace mrl
