// The menu on Windows. It is owner-drawn, so the window procedure of every owner must forward two
// messages.
#pragma once

#include <windows.h>

#include "core/popup_menu.h"

namespace mrl {

class PopupMenuWin : public PopupMenu {
 public:
  int choose(WindowHandle owner, Point point, const std::vector<MenuItem>& items) override;
};

/// WM_MEASUREITEM and WM_DRAWITEM. False if the item is not from one of our menus.
bool measureMenuItem(HWND owner, MEASUREITEMSTRUCT& item);
bool drawMenuItem(HWND owner, const DRAWITEMSTRUCT& item, bool highContrast);

/// Whether high contrast is on in the system.
bool isHighContrast();

}  // namespace mrl
