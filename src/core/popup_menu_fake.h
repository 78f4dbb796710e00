// A menu for tests that returns a preset choice.
#pragma once

#include <vector>

#include "core/popup_menu.h"

namespace mrl {

class PopupMenuFake : public PopupMenu {
 public:
  int choose(WindowHandle owner, Point point, const std::vector<MenuItem>& items) override {
    ++openings;
    lastOwner = owner;
    lastPoint = point;
    lastItems = items;
    return choice;
  }

  int choice = 0;

  int openings = 0;
  WindowHandle lastOwner;
  Point lastPoint;
  std::vector<MenuItem> lastItems;
};

}  // namespace mrl
