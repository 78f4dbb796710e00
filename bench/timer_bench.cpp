// The cost of the timer's own functions in one tick, compared with the bare reading of the time
// source.
#include <benchmark/benchmark.h>

#include "base/clock_fake.h"
#include "core/show_follower.h"
#include "core/timer.h"

namespace mrl {
namespace {

/// A talk in its first minute: nothing is due yet, as in nearly every tick.
struct Talk {
  Talk() { startTimer(timer, clock.nowMs()); }

  ClockFake clock;
  Settings settings;
  TimerState timer;
};

// The least that any of these functions could cost: a call that reads the time source.
[[gnu::noinline]] uint64_t readClock(const Clock& clock) { return clock.nowMs(); }

void bareClockReading(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) benchmark::DoNotOptimize(readClock(talk.clock));
}
BENCHMARK(bareClockReading);

void expiryNotDue(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(expiryDue(talk.timer, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(expiryNotDue);

void stageNotDue(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(stageDue(talk.timer, 1, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(stageNotDue);

void textOfTheTimeLeft(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(timeText(talk.timer, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(textOfTheTimeLeft);

void textOfAnHourOfOvertime(benchmark::State& state) {
  Talk talk;
  talk.clock.advance(4'500'000);
  for (auto _ : state) {
    benchmark::DoNotOptimize(timeText(talk.timer, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(textOfAnHourOfOvertime);

void followUnchangedShow(benchmark::State& state) {
  Talk talk;
  talk.settings.perSlide = true;
  ShowFollower follower;
  const ShowObservation seen{.showing = true,
                             .slideKey = u"C:\\Talks\\A talk of some length.pptx#12",
                             .documentState = DocumentState::Open,
                             .normalizedPath = u"C:\\Talks\\A talk of some length.pptx"};
  for (auto _ : state) {
    followShow(follower, talk.timer, talk.settings, seen, talk.clock.nowMs());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(followUnchangedShow);

void followNothing(benchmark::State& state) {
  Talk talk;
  ShowFollower follower;
  const ShowObservation seen{.slideKey = u"#0"};
  for (auto _ : state) {
    followShow(follower, talk.timer, talk.settings, seen, talk.clock.nowMs());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(followNothing);

}  // namespace
}  // namespace mrl
