// The icon in the notification area of the taskbar.
#pragma once

namespace mrl {

/// UI thread only.
class Tray {
 public:
  virtual ~Tray() = default;
  /// False if there is no shell yet or the icon already exists. REQUIRES: the clock's window
  /// exists; it receives the icon's messages.
  [[nodiscard]] virtual bool add() = 0;
  /// Updates an existing icon; false if there is none. REQUIRES: as add().
  [[nodiscard]] virtual bool refresh() = 0;
  virtual void remove() = 0;
};

}  // namespace mrl
