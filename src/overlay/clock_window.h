// The clock's window as App uses it. It has no frame, title bar or taskbar button, and nothing here
// ever activates it.
#pragma once

#include <string>

#include "base/geometry.h"
#include "base/window_handle.h"

namespace mrl {

/// UI thread only. Screen pixels. Before create() and after destroy() there is no window: commands
/// then do nothing and queries return empty values, except dpi() and cursor().
class ClockWindow {
 public:
  virtual ~ClockWindow() = default;

  /// Creates the window, hidden. Any position is accepted, even outside every monitor.
  /// REQUIRES: there is no window.
  [[nodiscard]] virtual bool create(Point topLeft, Size size) = 0;
  virtual void destroy() = 0;
  [[nodiscard]] virtual WindowHandle handle() const = 0;

  [[nodiscard]] virtual bool isVisible() const = 0;
  /// Shows the window above all other always-on-top windows.
  virtual void show() = 0;
  virtual void hide() = 0;
  /// Moves it to the top of the always-on-top windows, without showing it.
  virtual void raise() = 0;

  [[nodiscard]] virtual Rect rect() const = 0;
  /// 96 while there is no window.
  [[nodiscard]] virtual int dpi() const = 0;
  /// The work area, without taskbars, of the monitor nearest to the window.
  [[nodiscard]] virtual Rect nearestWorkArea() const = 0;
  virtual void moveTo(Point topLeft) = 0;
  virtual void resize(Size size) = 0;
  /// Sets position and size in one step, and moves it to the top as raise() does.
  virtual void setRect(const Rect& rect) = 0;

  /// Requests a repaint of the whole window.
  virtual void invalidate() = 0;
  /// Runs a requested repaint now instead of when the message loop is idle.
  virtual void paintNow() = 0;
  /// Removes any clipping region and requests a repaint: the shape comes from the picture alone.
  virtual void dropRegion() = 0;
  /// Publishes the clock's text for other programs, which could otherwise only see pixels.
  virtual void setText(const std::u16string& text) = 0;

  /// Runs the system's modal move loop; returns when the mouse button is released.
  virtual void beginMove() = 0;
  virtual void captureMouse() = 0;
  virtual void releaseMouse() = 0;
  [[nodiscard]] virtual Point cursor() const = 0;
};

}  // namespace mrl
