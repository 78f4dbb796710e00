// Interface to other programs' windows: queries them, raises them, sends them keys.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/window_handle.h"

namespace mrl {

/// UI thread only. A window may close at any moment: calls then fail or return empty values.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  /// All top-level windows, topmost first.
  [[nodiscard]] virtual std::vector<WindowHandle> topLevelWindows() = 0;
  /// All its child windows, at any depth.
  [[nodiscard]] virtual std::vector<WindowHandle> windowsInside(WindowHandle window) = 0;
  [[nodiscard]] virtual bool isVisible(WindowHandle window) = 0;
  [[nodiscard]] virtual bool isIconic(WindowHandle window) = 0;
  /// Full path of the owning program's image; empty if it can't be read.
  [[nodiscard]] virtual std::u16string imageName(WindowHandle window) = 0;
  /// Cut off after 2047 characters.
  [[nodiscard]] virtual std::u16string title(WindowHandle window) = 0;
  /// Cut off after 255 characters.
  [[nodiscard]] virtual std::u16string className(WindowHandle window) = 0;
  [[nodiscard]] virtual Rect rect(WindowHandle window) = 0;
  /// The full rectangle of the monitor nearest to the window.
  [[nodiscard]] virtual Rect monitorRect(WindowHandle window) = 0;

  /// False for a null handle.
  [[nodiscard]] virtual bool isWindow(WindowHandle window) = 0;
  [[nodiscard]] virtual WindowHandle foreground() = 0;
  virtual void setForeground(WindowHandle window) = 0;
  virtual void restore(WindowHandle window) = 0;
  virtual void show(WindowHandle window) = 0;
  /// Moves the window into or out of the topmost band and shows it; position and size stay.
  virtual void setTopmost(WindowHandle window, bool topmost) = 0;
  virtual void bringToTop(WindowHandle window) = 0;

  struct KeyEvent {
    uint16_t virtualKey = 0;
    bool up = false;
    bool operator==(const KeyEvent&) const = default;
  };
  /// Sends all events in one batch to the window with the focus; returns how many were accepted.
  virtual size_t sendKeys(const std::vector<KeyEvent>& events) = 0;
};

}  // namespace mrl
