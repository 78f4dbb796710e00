// A menu that pops up at a point of the screen.
#pragma once

#include <string_view>
#include <vector>

#include "base/geometry.h"
#include "base/window_handle.h"

namespace mrl {

struct MenuItem {
  int command = 0;
  std::u16string_view text;  // empty: a separator
  bool checked = false;
  bool operator==(const MenuItem&) const = default;
};

/// UI thread only.
class PopupMenu {
 public:
  virtual ~PopupMenu() = default;
  /// Brings `owner` to the foreground, opens the menu and waits for the user. Returns the chosen
  /// command, or 0. Messages are still dispatched meanwhile, so the tick keeps running.
  [[nodiscard]] virtual int choose(WindowHandle owner, Point point,
                                   const std::vector<MenuItem>& items) = 0;
};

}  // namespace mrl
