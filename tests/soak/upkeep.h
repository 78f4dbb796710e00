// What a program costs the system while it runs, and whether that stays the same. Windows only, and
// for Wine: see held_objects.h.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "windows/held_objects.h"

namespace mrl {

/// Sizes in KiB, as the system tells them of another process.
struct Upkeep {
  double minute = 0;   // of the run
  int workingSet = 0;  // resident memory, shared pages included
  int ownMemory = 0;   // private bytes
  HeldObjects held;    // of the windows: those of all programs
};

Upkeep upkeepOf(DWORD processId, double minute);

/// What is more at the end than after the warm-up by more than is allowed, in words; empty if
/// nothing is. Fewer objects are no leak. REQUIRES: at least two rows.
std::string growthIn(const std::vector<Upkeep>& rows);

void print(const char* name, const std::vector<Upkeep>& rows);

}  // namespace mrl
