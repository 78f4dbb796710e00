// The toolbar of resize mode: a small popup window with two buttons. Its class
// "Marlune.Native.Resize" and the window procedure belong to the program's message routing.
#pragma once

#include <windows.h>

#include "core/unique_handle.h"
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
  void place(Point topLeft) override;
  void remove() override;
  WindowHandle handle() const override;

  /// Null while there is no toolbar.
  HWND window() const;

 private:
  struct FontTraits {
    static HFONT none() { return nullptr; }
    static void close(HFONT font) { DeleteObject(font); }
  };

  void create(int dpi);

  HINSTANCE instance;
  void* creationParameter;
  const ClockWindowWin& clock;
  UniqueHandle<FontTraits> font;  // outlives the buttons that draw with it
  HWND hwnd = nullptr;
};

}  // namespace mrl
