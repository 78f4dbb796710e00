// What the screen shows, to look at in a test and to keep as a file. Windows only.
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

/// Screen pixels; what lies outside the screen is black.
Picture pictureOf(const RECT& screenRect);
/// As soon as two looks in a row show the same.
Picture settledPictureOf(const RECT& screenRect);
/// build/windows-shots/<name>; false when it could not be written.
[[nodiscard]] bool savePng(const Picture& picture, const std::wstring& name);
std::wstring pictureFolder();

}  // namespace mrl
