// The cost of the whole tick while nothing is due, which is nearly always: ten times a second for
// as long as the program runs.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "core/app_fake.h"
#include "core/tick.h"

namespace mrl {
namespace {

/// A talk in its first minute, between two polls.
struct Evening : AppFake {
  Evening() {
    (void)startApp(app, {}, u"C:\\settings.dat");
    startTimer(app.timer, clock.nowMs());
    tick(app);
  }
};

void tickWithNothingToDo(benchmark::State& state) {
  Evening evening;
  for (auto _ : state) tick(evening.app);
}
BENCHMARK(tickWithNothingToDo)->Name("tick with nothing due | marlune");

/// Formats the time left and compares it with what the clock shows.
void compareText(benchmark::State& state) {
  const Evening evening;
  const std::string shown = "15:00";
  for (auto _ : state) {
    const auto left = static_cast<int>(
        900 - (evening.app.platform.clock.nowMs() - evening.app.timer.startedAtMs) / 1000);
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d", left / 60, left % 60);
    benchmark::DoNotOptimize(shown == text);
  }
}
BENCHMARK(compareText)->Name("tick with nothing due | snprintf and compare");

}  // namespace
}  // namespace mrl
