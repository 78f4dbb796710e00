// What the clock and its preview look like, computed without a screen: colours, shape, size of the
// digits, handles. The painter only executes the list. Pure functions, any thread.
//
// Lengths are in units of 1/96 inch from the window's top left corner.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "settings/settings.h"

namespace mrl {

/// The input of one paint.
struct ClockPicture {
  const Settings& settings;  // only appearance is read; must outlive the picture
  std::u16string text;
  bool blinkOn = false;  // the bright phase of a blink
  bool isPreview = false;
  bool handles = false;  // resize mode; a preview always has them
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

/// Drawn in the order of the members.
struct ClockDrawing {
  ColourF clear;
  ClockShape shape = ClockShape::Rectangle;
  RectF box;  // the whole window: the shape fills it, the text is centred in it
  ColourF fill;
  std::optional<ClockText> text;
  std::vector<RectF> handles;
};

/// Measures text; the interface to the font engine.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  /// The advance width at the text's size; empty if it can't be measured.
  [[nodiscard]] virtual std::optional<float> widthOf(const ClockText& text) = 0;
};

/// A text that can't be measured is left out; shape and handles are still drawn.
ClockDrawing drawClock(const ClockPicture& picture, float width, float height,
                       TextMeasurer& measurer);

struct Blink {
  bool active = false;
  uint64_t startMs = 0;
  uint64_t endMs = 0;  // 0: until it is stopped

  /// For `seconds`, or until it is stopped if 0.
  void start(uint64_t nowMs, uint32_t seconds) {
    *this = {true, nowMs, seconds > 0 ? nowMs + uint64_t{seconds} * 1000 : 0};
  }
  void stop() {
    active = false;
    endMs = 0;
  }
};
/// Whether the blink is in its bright phase, which comes first.
bool isBlinkOn(const Blink& blink, const Settings& settings, uint64_t nowMs);

/// What the preview shows in the phase chosen in the settings window: 1 alert, 2 overtime, any
/// other normal.
std::u16string previewText(const Settings& settings, uint32_t phase);
bool previewBlinkOn(const Settings& settings, uint32_t phase);

}  // namespace mrl
