// Points, rectangles and the one scaling rule of the program.
#pragma once

#include <cstdint>

namespace mrl {

struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

/// Right and bottom are exclusive. Screen pixels unless stated otherwise.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  [[nodiscard]] int width() const { return right - left; }
  [[nodiscard]] int height() const { return bottom - top; }
  bool operator==(const Rect&) const = default;
};

/// value * numerator / denominator, halves rounded away from zero. REQUIRES: denominator > 0.
constexpr int mulDiv(int value, int numerator, int denominator) {
  const int64_t product = int64_t{value} * numerator;
  const int64_t half = denominator / 2;
  return static_cast<int>((product >= 0 ? product + half : product - half) / denominator);
}

constexpr int kUnitsPerInch = 96;

/// Units of 1/96 inch to pixels, and back.
constexpr int toPixels(int units, int dpi) { return mulDiv(units, dpi, kUnitsPerInch); }
constexpr int toUnits(int pixels, int dpi) { return mulDiv(pixels, kUnitsPerInch, dpi); }

}  // namespace mrl
