#include "core/menu_look.h"

namespace mrl {
namespace {

// Units of 1/96 inch.
constexpr int kHeight = 30;
constexpr int kAroundText = 48;
constexpr Size kPillInset{3, 2};
constexpr int kPillCorner = 8;
constexpr int kCheckLeft = 5;
constexpr int kCheckWidth = 20;
constexpr int kTextLeft = 30;
constexpr int kTextRight = 12;

}  // namespace

MenuItemLook menuItemLook(bool selected, bool highContrast) {
  if (!selected) return MenuItemLook::Plain;
  return highContrast ? MenuItemLook::Highlighted : MenuItemLook::Pill;
}

Size menuItemSize(int textWidth, int dpi) {
  return {textWidth + toPixels(kAroundText, dpi), toPixels(kHeight, dpi)};
}

MenuItemPlaces menuItemPlaces(const Rect& item, int dpi) {
  const int insetX = toPixels(kPillInset.width, dpi);
  const int insetY = toPixels(kPillInset.height, dpi);
  const int checkLeft = item.left + toPixels(kCheckLeft, dpi);
  return {
      .pill = {item.left + insetX, item.top + insetY, item.right - insetX, item.bottom - insetY},
      .check = {checkLeft, item.top, checkLeft + toPixels(kCheckWidth, dpi), item.bottom},
      .text = {item.left + toPixels(kTextLeft, dpi), item.top,
               item.right - toPixels(kTextRight, dpi), item.bottom},
      .pillCorner = toPixels(kPillCorner, dpi),
  };
}

}  // namespace mrl
