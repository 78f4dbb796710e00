// Finds a program's object model through its windows.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <vector>

#include "base/com_ref_win.h"
#include "base/window_handle.h"

namespace mrl {

/// Queries windows for their native object. Use one instance per search: it remembers the threads
/// that don't respond, so a hung program costs one time-out and not one per window. UI thread.
class ObjectModelSearch {
 public:
  /// Null if the window has no such object, is gone, or its thread doesn't respond in time.
  ComRef<IDispatch> objectOf(WindowHandle window);

 private:
  bool answers(HWND window);

  std::vector<DWORD> silentThreads;
};

}  // namespace mrl
