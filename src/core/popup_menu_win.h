// The menu on Windows. It is drawn by us, so the procedure of every window that owns one hands two
// messages on.
#pragma once

#include <windows.h>

#include "core/popup_menu.h"

namespace mrl {

class PopupMenuWin : public PopupMenu {
 public:
  int choose(WindowHandle owner, Point point, const std::vector<MenuItem>& items) override;
};

/// WM_MEASUREITEM and WM_DRAWITEM: false when the item is not one of a menu of ours.
bool measureMenuItem(HWND owner, MEASUREITEMSTRUCT& item);
bool drawMenuItem(HWND owner, const DRAWITEMSTRUCT& item, bool highContrast);

/// Whether the user has asked the system for high contrast.
bool isHighContrast();

}  // namespace mrl
