// Position, size limits and corner drags of the clock. Pure functions on plain rectangles; screen
// pixels unless a name says units, which are 1/96 inch.
#pragma once

#include <array>
#include <optional>

#include "base/command_ids.h"
#include "base/geometry.h"
#include "settings/settings.h"

namespace mrl {

// Dragging stops where the number boxes of the settings window do.
constexpr Range kClockWidths = *rowOf(kSettings, &Settings::windowWidth).boxRange;
constexpr Range kClockHeights = *rowOf(kSettings, &Settings::windowHeight).boxRange;
constexpr Size kSmallestClockUnits{kClockWidths.lowest, kClockHeights.lowest};
constexpr Size kLargestClockUnits{kClockWidths.highest, kClockHeights.highest};
constexpr Size kDefaultClockUnits{183, 82};

struct SizeLimits {
  Size smallest;
  Size largest;
  bool operator==(const SizeLimits&) const = default;
};
SizeLimits clockSizeLimits(int dpi);
Size clockPixels(Size units, int dpi);
Size clockUnits(Size pixels, int dpi);

/// Values of the system's hit-test codes (HTTOPLEFT etc.).
enum class CornerHit { None = 0, TopLeft = 13, TopRight = 14, BottomLeft = 16, BottomRight = 17 };
CornerHit hitTest(Point cursor, const Rect& window, int dpi);
/// The corner of a hit-test code; None for any other part of a window.
CornerHit cornerFrom(int hitAnswer);

/// The window's rectangle after the cursor moved by `way` since the drag began at `start`. The
/// corner opposite `hit` stays; a preview keeps its top left corner, whichever corner is dragged.
/// REQUIRES: `hit` is a corner.
Rect dragCorner(const Rect& start, CornerHit hit, Point way, int dpi, bool isPreview);

/// The state at the start of a corner drag.
struct CornerDrag {
  CornerHit hit = CornerHit::None;
  Point cursor;
  Rect rect;
};
/// The window's rectangle with the cursor at `cursor`.
Rect draggedTo(Point cursor, const CornerDrag& drag, int dpi, bool isPreview);

/// The new top left corner of a clock that is entirely outside the work area, otherwise empty.
std::optional<Point> offScreenCorrection(const Rect& window, const Rect& workArea);
/// The top left corner of a clock without a saved position.
Point firstRunPlace(const Rect& workArea, int widthUnits, int dpi);

/// The toolbar of resize mode; all in units.
struct ToolbarButton {
  int command;  // also the control's id
  const char16_t* text;
  int left;
  int top;
  int width;
  int height;
};
constexpr std::array<ToolbarButton, 2> kToolbarButtons{{
    {kCommandToggleResizeMode, u"确定", 6, 5, 74, 28},
    {kCommandDefaultSize, u"恢复默认", 86, 5, 126, 28},
}};
constexpr Size kToolbarUnits{222, 40};
constexpr const char16_t* kToolbarTitle = u"调整大小";
constexpr const char16_t* kToolbarFont = u"Segoe UI";
constexpr int kToolbarFontUnits = 14;
/// The top left corner of the toolbar, below the clock.
Point toolbarPlace(const Rect& clock, int dpi);

}  // namespace mrl
