// The appearance of the clock: see clock_drawing.h.
#include "overlay/clock_drawing.h"

#include <algorithm>

#include "base/clock_text.h"

namespace mrl {
namespace {

constexpr float kOpaque = 1;
constexpr uint32_t kPreviewGround = 0xEEF3F9;
constexpr uint32_t kPreviewGroundTextOnly = 0x273346;

// Too faint to see, yet it rounds to an alpha of 1 in 255: the mouse still hits the window.
constexpr float kTextOnlyAlpha = 0.004F;
constexpr uint32_t kLowestOpacity = 10;  // percent
constexpr uint32_t kHighestOpacity = 100;

constexpr float kSizePerWidth = 0.43F;
constexpr float kSizePerHeight = 0.72F;
constexpr float kSmallestSize = 1;
constexpr float kTextMargins = 12;  // both sides together
constexpr float kHandleSide = 8;

ColourF clearColour(const ClockPicture& picture) {
  if (!picture.isPreview) return {};
  return colourFrom(picture.settings.transparent ? kPreviewGroundTextOnly : kPreviewGround,
                    kOpaque);
}

ColourF fillColour(const ClockPicture& picture) {
  const Settings& settings = picture.settings;
  const float opacity =
      static_cast<float>(std::clamp(settings.opacity, kLowestOpacity, kHighestOpacity)) / 100;
  if (picture.blinkOn) return colourFrom(settings.alert, opacity);
  return colourFrom(settings.background, settings.transparent ? kTextOnlyAlpha : opacity);
}

ClockShape shapeFrom(uint32_t number) {
  switch (number) {
    case 1: return ClockShape::Rounded;
    case 2: return ClockShape::Ellipse;
    default: return ClockShape::Rectangle;
  }
}

std::optional<ClockText> fittedText(const ClockPicture& picture, float width, float height,
                                    TextMeasurer& measurer) {
  ClockText text{
      .text = picture.text,
      .family = picture.settings.fontName,
      .weight = picture.settings.fontWeight,
      .size = std::max(std::min(width * kSizePerWidth, height * kSizePerHeight), kSmallestSize),
      .colour = colourFrom(picture.settings.foreground, kOpaque),
  };
  const std::optional<float> measured = measurer.widthOf(text);
  if (!measured) return std::nullopt;
  // Width grows in proportion to size, so one correction is enough.
  const float available = width - kTextMargins;
  if (*measured > available) {
    text.size = std::max(available * text.size / *measured, kSmallestSize);
  }
  return text;
}

std::vector<RectF> handleBoxes(float width, float height) {
  const float right = width - kHandleSide;
  const float bottom = height - kHandleSide;
  return {{0, 0, kHandleSide, kHandleSide},
          {right, 0, width, kHandleSide},
          {0, bottom, kHandleSide, height},
          {right, bottom, width, height}};
}

}  // namespace

ColourF colourFrom(uint32_t rgb, float alpha) {
  const auto channel = [rgb](int shift) { return static_cast<float>((rgb >> shift) & 0xFF) / 255; };
  return {channel(16), channel(8), channel(0), alpha};
}

ClockDrawing drawClock(const ClockPicture& picture, float width, float height,
                       TextMeasurer& measurer) {
  ClockDrawing drawing{
      .clear = clearColour(picture),
      .shape = shapeFrom(picture.settings.shape),
      .box = {0, 0, width, height},
      .fill = fillColour(picture),
      .text = fittedText(picture, width, height, measurer),
      .handles = {},
  };
  if (picture.isPreview || picture.handles) drawing.handles = handleBoxes(width, height);
  return drawing;
}

bool isBlinkOn(const Blink& blink, const Settings& settings, uint64_t nowMs) {
  if (!blink.active) return false;
  if (blink.endMs != 0 && nowMs >= blink.endMs) return false;
  const uint64_t sinceStart = nowMs > blink.startMs ? nowMs - blink.startMs : 0;
  return sinceStart % (uint64_t{settings.blinkOn} + settings.blinkOff) < settings.blinkOn;
}

std::u16string previewText(const Settings& settings, uint32_t phase) {
  switch (phase) {
    case 1: return u"00:30";
    case 2: return u"已超时 00:15";
    default: return formatClock(settings.down ? settings.duration : 0);
  }
}

bool previewBlinkOn(const Settings& settings, uint32_t phase) {
  return phase == 1 || (phase == 2 && (settings.black || settings.blink));
}

}  // namespace mrl
