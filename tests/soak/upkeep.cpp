#include "soak/upkeep.h"

// Needs <windows.h> first.
#include <psapi.h>

#include <cstdio>

namespace mrl {
namespace {

constexpr int kMoreObjects = 5;
constexpr int kMorePercent = 5;

std::string growth(const char* what, int before, int after, int allowed) {
  if (before == 0) return std::string(what) + " could not be measured; ";
  if (after <= before + allowed) return {};
  return std::string(what) + " " + std::to_string(before) + " to " + std::to_string(after) + "; ";
}

}  // namespace

Upkeep upkeepOf(DWORD processId, double minute) {
  Upkeep upkeep{.minute = minute, .held = heldObjectsOf(processId)};
  const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, processId);
  PROCESS_MEMORY_COUNTERS memory{};
  if (GetProcessMemoryInfo(process, &memory, sizeof memory)) {
    upkeep.workingSet = static_cast<int>(memory.WorkingSetSize / 1024);
    // Wine leaves PrivateUsage at 0; here it tells the same, what only this process has in memory.
    upkeep.ownMemory = static_cast<int>(memory.PagefileUsage / 1024);
  }
  CloseHandle(process);
  return upkeep;
}

std::string growthIn(const std::vector<Upkeep>& rows) {
  const Upkeep& warm = rows.front();
  const Upkeep& last = rows.back();
  const auto percent = [](int of) { return of * kMorePercent / 100; };
  return growth("working set", warm.workingSet, last.workingSet, percent(warm.workingSet)) +
         growth("private bytes", warm.ownMemory, last.ownMemory, percent(warm.ownMemory)) +
         growth("handles", warm.held.handles, last.held.handles, kMoreObjects) +
         growth("GDI objects", warm.held.drawing, last.held.drawing, kMoreObjects) +
         growth("USER objects", warm.held.window, last.held.window, kMoreObjects);
}

void print(const char* name, const std::vector<Upkeep>& rows) {
  for (const Upkeep& row : rows) {
    std::printf("%-8s %6.1f  %15d  %17d  %7d  %3d  %20d\n", name, row.minute, row.workingSet,
                row.ownMemory, row.held.handles, row.held.drawing, row.held.window);
  }
}

}  // namespace mrl
