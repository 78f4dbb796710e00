// Other programs' windows: looking at them, raising them, sending them keys.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/window_handle.h"

namespace mrl {

/// UI thread only. A window may be gone at any moment: every call then fails or gives empty values.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  /// All top-level windows, from the top down.
  [[nodiscard]] virtual std::vector<WindowHandle> topLevelWindows() = 0;
  /// All windows inside it, at any depth.
  [[nodiscard]] virtual std::vector<WindowHandle> windowsInside(WindowHandle window) = 0;
  [[nodiscard]] virtual bool isVisible(WindowHandle window) = 0;
  [[nodiscard]] virtual bool isIconic(WindowHandle window) = 0;
  /// Full path of the owning program's image; empty when it can't be told.
  [[nodiscard]] virtual std::u16string imageName(WindowHandle window) = 0;
  /// Not more than 2047 characters of it.
  [[nodiscard]] virtual std::u16string title(WindowHandle window) = 0;
  /// Not more than 255 characters of it.
  [[nodiscard]] virtual std::u16string className(WindowHandle window) = 0;
  [[nodiscard]] virtual Rect rect(WindowHandle window) = 0;
  /// The full rectangle of the monitor nearest to the window.
  [[nodiscard]] virtual Rect monitorRect(WindowHandle window) = 0;

  /// False for none.
  [[nodiscard]] virtual bool isWindow(WindowHandle window) = 0;
  [[nodiscard]] virtual WindowHandle foreground() = 0;
  virtual void setForeground(WindowHandle window) = 0;
  virtual void restore(WindowHandle window) = 0;
  virtual void show(WindowHandle window) = 0;
  /// Into the always-on-top band or out of it, shown, without a change of place or size.
  virtual void setTopmost(WindowHandle window, bool topmost) = 0;
  virtual void bringToTop(WindowHandle window) = 0;

  struct KeyEvent {
    uint16_t virtualKey = 0;
    bool up = false;
    bool operator==(const KeyEvent&) const = default;
  };
  /// Sends all events at once to whatever has the focus; tells how many went in.
  virtual size_t sendKeys(const std::vector<KeyEvent>& events) = 0;
};

}  // namespace mrl
