// What the clock and its preview look like, decided without a screen: colours, shape, the size of
// the digits, the handles. The painter only carries the list out. Pure functions, any thread.
//
// Lengths are in units of 1/96 inch from the window's top left corner.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "settings/settings.h"

namespace mrl {

/// What one paint shows.
struct ClockPicture {
  const Settings& settings;  // only the look counts; must outlive the picture
  std::u16string text;
  bool blinkOn = false;  // the bright phase of a blink
  bool isPreview = false;
  bool handles = false;  // resize mode; a preview has them always
};

/// 0 to 1 each, not premultiplied.
struct ColourF {
  float red = 0;
  float green = 0;
  float blue = 0;
  float alpha = 0;
  bool operator==(const ColourF&) const = default;
};

/// From 0xRRGGBB.
ColourF colourFrom(uint32_t rgb, float alpha);

struct RectF {
  float left = 0;
  float top = 0;
  float right = 0;
  float bottom = 0;
  bool operator==(const RectF&) const = default;
};

enum class ClockShape { Rectangle, Rounded, Ellipse };
constexpr float kCornerRadius = 8;
constexpr ColourF kHandleColour{1, 1, 1, 1};

/// One line, centred both ways in the window.
struct ClockText {
  std::u16string text;
  std::u16string family;
  uint32_t weight = 0;
  float size = 0;
  ColourF colour;
  bool operator==(const ClockText&) const = default;
};

/// To be done in the order of the members.
struct ClockDrawing {
  ColourF clear;
  ClockShape shape = ClockShape::Rectangle;
  RectF box;  // the whole window: the shape fills it, the text is centred in it
  ColourF fill;
  std::optional<ClockText> text;
  std::vector<RectF> handles;
};

/// How wide a text comes out; the font engine behind a seam.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  /// The advance width at the text's size; empty when the font can't be had.
  [[nodiscard]] virtual std::optional<float> widthOf(const ClockText& text) = 0;
};

/// A text that can't be measured is left out; shape and handles stay.
ClockDrawing drawClock(const ClockPicture& picture, float width, float height,
                       TextMeasurer& measurer);

struct Blink {
  bool active = false;
  uint64_t startMs = 0;
  uint64_t endMs = 0;  // 0: until something stops it
};
/// Whether the blink is in its bright phase, which comes first.
bool isBlinkOn(const Blink& blink, const Settings& settings, uint64_t nowMs);

/// What the preview shows in the settings window's phases: 1 an alert, 2 overtime, else normal.
std::u16string previewText(const Settings& settings, uint32_t phase);
bool previewBlinkOn(const Settings& settings, uint32_t phase);

}  // namespace mrl
