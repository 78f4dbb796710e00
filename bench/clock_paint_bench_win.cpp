// The CPU time of one paint of the clock, compared with the least that a layered window could do:
// clear the same bitmap and hand it over. Prints both and their ratio.
//
// Under Wine set "csmt" (REG_DWORD) to 0 in HKCU\Software\Wine\Direct3D first. Otherwise the
// painting thread waits for Wine's drawing thread in a busy loop, and that is what gets measured.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <functional>

#include "overlay/clock_geometry.h"
#include "overlay/clock_painter_win.h"

namespace mrl {
namespace {

constexpr int kWarmUpPaints = 20;  // the first ones create targets and load fonts
constexpr int kPaints = 500;
constexpr double kTargetMs = 5;

double msOf(const FILETIME& time) {
  return static_cast<double>((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) / 10'000;
}

/// Sums all threads: the drawing library has threads of its own.
double processorMs() {
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  return msOf(kernel) + msOf(user);
}

double threadMs() {
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
  return msOf(kernel) + msOf(user);
}

struct Cost {
  double thread = 0;
  double process = 0;
};

Cost costOf(const std::function<void()>& paint) {
  for (int i = 0; i < kWarmUpPaints; ++i) paint();
  const Cost before{threadMs(), processorMs()};
  for (int i = 0; i < kPaints; ++i) paint();
  return {(threadMs() - before.thread) / kPaints, (processorMs() - before.process) / kPaints};
}

void clearAndShow(HWND window, ClockBitmap& bitmap, Size size) {
  if (!bitmap.ensure(size)) return;
  PatBlt(bitmap.dc(), 0, 0, size.width, size.height, BLACKNESS);
  SIZE extent{size.width, size.height};
  POINT source{0, 0};
  BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  UpdateLayeredWindow(window, nullptr, nullptr, &extent, bitmap.dc(), &source, 0, &blend,
                      ULW_ALPHA);
}

int run() {
  const Size size = kDefaultClockUnits;
  const HWND window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_LAYERED, L"STATIC",
                                      L"", WS_POPUP, 100, 100, size.width, size.height, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
  ClockPainterWin painter;
  if (!window || !painter.createFactories()) return 1;
  ShowWindow(window, SW_SHOWNOACTIVATE);

  const Settings settings;
  const ClockPicture picture{.settings = settings, .text = u"15:00"};
  ClockBitmap bare;
  const Cost paint = costOf([&] { painter.paintClock(window, picture); });
  const Cost least = costOf([&] { clearAndShow(window, bare, size); });
  std::printf("paint of the clock, 183x82:  %.3f ms of its thread, %.3f ms of the process\n",
              paint.thread, paint.process);
  std::printf("clear and hand over:         %.3f ms of its thread, %.3f ms of the process\n",
              least.thread, least.process);
  std::printf("ratio %.1f of its thread, target below %.0f ms: %s\n", paint.thread / least.thread,
              kTargetMs, paint.thread < kTargetMs ? "met" : "missed");
  DestroyWindow(window);
  return 0;
}

}  // namespace
}  // namespace mrl

int main() { return mrl::run(); }
