// The toolbar of resize mode: a small popup window with two buttons. The program's message routing
// owns its class "Marlune.Native.Resize" and the window procedure.
#pragma once

#include <windows.h>

#include "base/gdi_win.h"
#include "overlay/clock_window_win.h"
#include "overlay/resize_toolbar.h"

namespace mrl {

/// UI thread only.
class ResizeToolbarWin : public ResizeToolbar {
 public:
  /// `clock` owns the toolbar's window and must outlive this object. REQUIRES: the class is
  /// registered for `instance` before show().
  ResizeToolbarWin(HINSTANCE instance, void* creationParameter, const ClockWindowWin& clock);
  ResizeToolbarWin(const ResizeToolbarWin&) = delete;
  ResizeToolbarWin& operator=(const ResizeToolbarWin&) = delete;
  ~ResizeToolbarWin() override;

  void show(Point topLeft, int dpi) override;
  void place(Point topLeft, int dpi) override;
  void remove() override;

  /// Null while there is no toolbar.
  HWND window() const;

 private:
  void create(Point topLeft);
  void layOut(int dpi);

  HINSTANCE instance;
  void* creationParameter;
  const ClockWindowWin& clock;
  Font font;  // must outlive the buttons, which draw with it
  int layoutDpi = 0;
  HWND hwnd = nullptr;
};

}  // namespace mrl
