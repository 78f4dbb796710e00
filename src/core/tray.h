// The icon in the notification area of the taskbar.
#pragma once

namespace mrl {

/// UI thread only.
class Tray {
 public:
  virtual ~Tray() = default;
  /// False when there is no shell yet, or when the icon stands there already. REQUIRES: the clock's
  /// window exists; it gets the icon's messages.
  [[nodiscard]] virtual bool add() = 0;
  /// Gives an icon that stands its picture anew; false when none stands. REQUIRES: as add().
  [[nodiscard]] virtual bool refresh() = 0;
  virtual void remove() = 0;
};

}  // namespace mrl
