// Screenshots, to check in a test and to save as files. Windows only.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/geometry.h"

namespace mrl {

struct Picture {
  Size size;
  std::vector<uint32_t> pixels;  // 0xRRGGBB, row by row from the top

  [[nodiscard]] uint32_t at(int x, int y) const {
    return pixels[static_cast<size_t>(y) * static_cast<size_t>(size.width) +
                  static_cast<size_t>(x)];
  }
  bool operator==(const Picture&) const = default;
};

/// `screenRect` is in screen pixels; what lies outside the screen is black.
Picture pictureOf(const RECT& screenRect);
/// Waits until two pictures in a row are equal.
Picture settledPictureOf(const RECT& screenRect);
/// Writes build/windows-shots/<name>; false on failure.
[[nodiscard]] bool savePng(const Picture& picture, const std::wstring& name);
std::wstring pictureFolder();

}  // namespace mrl
