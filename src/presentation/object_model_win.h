// The way to a program's object model that leads through its windows.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <vector>

#include "base/com_ref_win.h"
#include "base/window_handle.h"

namespace mrl {

/// Asks windows, one after the other, for the native object behind them. For one search only: it
/// remembers which threads don't answer, so that a program that hangs is waited for once and not
/// for each of its windows. UI thread.
class ObjectModelSearch {
 public:
  /// Null when the window has no such object, is gone, or its thread doesn't answer in time.
  ComRef<IDispatch> objectOf(WindowHandle window);

 private:
  bool answers(HWND window);

  std::vector<DWORD> silentThreads;
};

}  // namespace mrl
