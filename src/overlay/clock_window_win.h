// The clock's layered window. The program's message routing owns its class "Marlune.Native.Timer"
// and the window procedure.
#pragma once

#include <windows.h>

#include "overlay/clock_window.h"

namespace mrl {

/// UI thread only. The destructor destroys the window.
class ClockWindowWin : public ClockWindow {
 public:
  /// `creationParameter` is passed to the window procedure with WM_NCCREATE. REQUIRES: the class is
  /// registered for `instance` before create().
  ClockWindowWin(HINSTANCE instance, void* creationParameter);
  ClockWindowWin(const ClockWindowWin&) = delete;
  ClockWindowWin& operator=(const ClockWindowWin&) = delete;
  ~ClockWindowWin() override;

  bool create(Point topLeft, Size size) override;
  void destroy() override;
  WindowHandle handle() const override;

  bool isVisible() const override;
  void show() override;
  void hide() override;
  void raise() override;

  Rect rect() const override;
  int dpi() const override;
  Rect nearestWorkArea() const override;
  void moveTo(Point topLeft) override;
  void resize(Size size) override;
  void setRect(const Rect& rect) override;

  void invalidate() override;
  void paintNow() override;
  void dropRegion() override;
  /// Published as the window property "Marlune.Text": an atom of the global table.
  void setText(const std::u16string& text) override;

  void beginMove() override;
  void captureMouse() override;
  void releaseMouse() override;
  Point cursor() const override;

  /// Null while there is no window.
  HWND window() const { return hwnd; }

 private:
  void removeText();

  HINSTANCE instance;
  void* creationParameter;
  HWND hwnd = nullptr;
};

}  // namespace mrl
