// Counts the system objects that a process holds, to find leaks. For Wine, where the system
// functions that count them always return 0.
#pragma once

#include <windows.h>

namespace mrl {

struct HeldObjects {
  int drawing = 0;  // of the process: device contexts, bitmaps, fonts, brushes, regions
  int window = 0;   // of all processes of the desktop: windows, menus, icons, batches of moves
  int handles = 0;  // of the process: files, events, threads
};

HeldObjects heldObjectsOf(DWORD processId);

}  // namespace mrl
