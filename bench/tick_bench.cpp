// The cost of the whole tick while nothing is due, which is nearly always: ten times a second for
// as long as the program runs.
#include <benchmark/benchmark.h>

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

// The least that a tick must do: read the time source and format the text that it compares.
void bareText(benchmark::State& state) {
  const Evening evening;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        timeText(evening.app.timer, evening.clock.nowMs(), evening.app.settings));
  }
}
BENCHMARK(bareText);

void tickWithNothingToDo(benchmark::State& state) {
  Evening evening;
  for (auto _ : state) tick(evening.app);
}
BENCHMARK(tickWithNothingToDo);

}  // namespace
}  // namespace mrl
