// WindowSystem for the desktop of this session.
#pragma once

#include "presentation/window_system.h"

namespace mrl {

class WindowSystemWin : public WindowSystem {
 public:
  std::vector<WindowHandle> topLevelWindows() override;
  std::vector<WindowHandle> windowsInside(WindowHandle window) override;
  bool isVisible(WindowHandle window) override;
  bool isIconic(WindowHandle window) override;
  std::u16string imageName(WindowHandle window) override;
  std::u16string title(WindowHandle window) override;
  std::u16string className(WindowHandle window) override;
  Rect rect(WindowHandle window) override;
  Rect monitorRect(WindowHandle window) override;
  bool isWindow(WindowHandle window) override;
  WindowHandle foreground() override;
  void setForeground(WindowHandle window) override;
  void restore(WindowHandle window) override;
  void show(WindowHandle window) override;
  void setTopmost(WindowHandle window, bool topmost) override;
  void bringToTop(WindowHandle window) override;
  size_t sendKeys(const std::vector<KeyEvent>& events) override;
};

}  // namespace mrl
