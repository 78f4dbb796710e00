// Layout and colours of a menu item.
#pragma once

#include <cstdint>

#include "base/geometry.h"

namespace mrl {

inline constexpr char16_t kMenuFont[] = u"Segoe UI";
inline constexpr int kMenuFontUnits = 13;
inline constexpr char16_t kMenuCheck[] = u"✓";

// 0xRRGGBB; all other colours are the system's.
inline constexpr uint32_t kMenuPillColour = 0xE8F1FF;
inline constexpr uint32_t kMenuPillTextColour = 0x1B4D9B;

enum class MenuItemLook {
  Plain,       // the menu's own colours
  Pill,        // a light rounded rectangle under the text
  Highlighted  // the system's selection colours, as high contrast demands
};

MenuItemLook menuItemLook(bool selected, bool highContrast);

/// Pixels, for a text that is `textWidth` pixels wide.
Size menuItemSize(int textWidth, int dpi);

/// Pixels, in the coordinates of the item's rectangle.
struct MenuItemPlaces {
  Rect pill;
  Rect check;
  Rect text;
  int pillCorner = 0;  // width and height of the ellipse that rounds a corner
};
MenuItemPlaces menuItemPlaces(const Rect& item, int dpi);

}  // namespace mrl
