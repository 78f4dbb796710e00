// The floating window of the clock, as App handles it. It has no frame, no title bar and no taskbar
// button, and nothing here ever activates it.
#pragma once

#include <string>

#include "base/geometry.h"
#include "base/window_handle.h"

namespace mrl {

/// UI thread only. Screen pixels. Before create() and after destroy() there is no window: commands
/// then do nothing and questions give empty answers.
class ClockWindow {
 public:
  virtual ~ClockWindow() = default;

  /// Makes the window, not shown yet. Any place will do, also one that no monitor reaches.
  /// REQUIRES: there is none.
  [[nodiscard]] virtual bool create(Point topLeft, Size size) = 0;
  virtual void destroy() = 0;
  [[nodiscard]] virtual WindowHandle handle() const = 0;

  [[nodiscard]] virtual bool isVisible() const = 0;
  /// Shows the window above all other always-on-top windows.
  virtual void show() = 0;
  virtual void hide() = 0;
  /// To the top of the always-on-top windows, shown or not as it was.
  virtual void raise() = 0;

  [[nodiscard]] virtual Rect rect() const = 0;
  /// 96 while there is no window.
  [[nodiscard]] virtual int dpi() const = 0;
  /// The monitor nearest to the window, without taskbars.
  [[nodiscard]] virtual Rect nearestWorkArea() const = 0;
  virtual void moveTo(Point topLeft) = 0;
  virtual void resize(Size size) = 0;
  /// Place and size in one step, on top of all windows.
  virtual void setRect(const Rect& rect) = 0;

  /// Asks for a new paint of the whole window.
  virtual void invalidate() = 0;
  /// Carries out a paint that was asked for, now instead of when the loop is idle.
  virtual void paintNow() = 0;
  /// Takes away any region that clips the window: its shape comes from its picture alone.
  virtual void dropRegion() = 0;
  /// Publishes what the clock shows. It is painted as pixels only, so this is how other programs
  /// can read it.
  virtual void setText(const std::u16string& text) = 0;

  /// Lets the system move the window with the mouse until the button goes up; returns after that.
  virtual void beginMove() = 0;
  virtual void captureMouse() = 0;
  virtual void releaseMouse() = 0;
  [[nodiscard]] virtual Point cursor() const = 0;
};

}  // namespace mrl
