// The CPU time that opening the real settings window and turning to another page cost in the
// program's process. Prints the median of each. Needs marlune.exe beside it and a desktop.
#include <windows.h>
// Must come after <windows.h>.
#include <tlhelp32.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <vector>

#include "base/command_ids.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "windows/program.h"

namespace mrl {
namespace {

constexpr int kWarmUpRounds = 5;
constexpr int kOpenings = 30;
constexpr int kPageRounds = 30;  // CPU times have a 10 ms resolution, so five turns make one figure
constexpr DWORD kSettleMs = 150;  // includes what is painted when the loop is idle
constexpr double kOpeningTargetMs = 300;
constexpr double kPageTargetMs = 50;

double msOf(const FILETIME& time) {
  return static_cast<double>((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) / 10'000;
}

double threadMs(DWORD threadId) {
  const HANDLE thread = OpenThread(THREAD_QUERY_INFORMATION, FALSE, threadId);
  FILETIME created;
  FILETIME ended;
  FILETIME kernel{};
  FILETIME user{};
  GetThreadTimes(thread, &created, &ended, &kernel, &user);
  CloseHandle(thread);
  return msOf(kernel) + msOf(user);
}

/// Sums the threads, because Wine does not report the total of another process.
double processorMs(DWORD processId) {
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  double sum = 0;
  for (BOOL more = Thread32First(snapshot, &thread); more; more = Thread32Next(snapshot, &thread)) {
    if (thread.th32OwnerProcessID == processId) sum += threadMs(thread.th32ThreadID);
  }
  CloseHandle(snapshot);
  return sum;
}

double costOf(DWORD processId, const std::function<void()>& action) {
  const double before = processorMs(processId);
  action();
  Sleep(kSettleMs);
  return processorMs(processId) - before;
}

void print(const char* what, std::vector<double> costs, double idle, double target) {
  std::ranges::sort(costs);
  std::printf("%s: median %.0f ms, %.0f to %.0f, of %zu (target: under %.0f; idle: %.1f)\n", what,
              costs[costs.size() / 2], costs.front(), costs.back(), costs.size(), target, idle);
}

int measure() {
  Program program;
  Settings settings;
  settings.windowX = GetSystemMetrics(SM_CXSCREEN) - scaled(60);  // out of the window's way
  program.prepare(settings);
  if (!program.start()) return 1;
  DWORD processId = 0;
  GetWindowThreadProcessId(program.clock(), &processId);
  double idle = 0;
  for (int i = 0; i < kOpenings; ++i) idle += costOf(processId, [] {}) / kOpenings;

  std::vector<double> openings;
  for (int i = 0; i < kWarmUpRounds + kOpenings; ++i) {
    const double cost = costOf(processId, [&] { program.command(kCommandOpenSettings); });
    if (i >= kWarmUpRounds) openings.push_back(cost);
    if (i + 1 < kWarmUpRounds + kOpenings && !program.closeSettings()) return 1;
  }
  print("an opening", openings, idle, kOpeningTargetMs);

  const HWND window = program.settingsWindow();
  std::vector<double> turns;
  for (int round = 0; round < kWarmUpRounds + kPageRounds; ++round) {
    double sum = 0;
    for (int page = 0; page < kPageCount; ++page) {
      const int section = kFirstSection + page;
      sum += costOf(processId,
                    [&] { SendMessageW(window, WM_COMMAND, static_cast<WPARAM>(section), 0); });
    }
    if (round >= kWarmUpRounds) turns.push_back(sum / kPageCount);
  }
  print("a turn to another page", turns, idle, kPageTargetMs);
  return 0;
}

}  // namespace
}  // namespace mrl

int main() {
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  return mrl::measure();
}
