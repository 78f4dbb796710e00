// The timer's own functions in one tick, and the follower in one poll, compared with the least work
// that could do.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cwchar>

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

/// The least: all that decides, in one condition, and no care for a time source that jumps.
[[gnu::noinline]] bool isDue(const TimerState& timer, uint64_t nowMs, bool wanted, bool fired,
                             uint32_t seconds) {
  return wanted && !fired && timer.phase == TimerPhase::Running &&
         timer.elapsedMs + static_cast<int64_t>(nowMs - timer.startedAtMs) >=
             int64_t{seconds} * 1000;
}

void expiryNotDue(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(expiryDue(talk.timer, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(expiryNotDue)->Name("end of the time, not due | marlune");

void stageNotDue(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(stageDue(talk.timer, 1, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(stageNotDue)->Name("alert before the end, not due | marlune");

void compareWithEnd(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(isDue(talk.timer, talk.clock.nowMs(), talk.settings.down,
                                   talk.timer.expiredFired, talk.settings.duration));
  }
}
BENCHMARK(compareWithEnd)->Name("end of the time, not due | one condition");

void compareWithAlert(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    const PromptStage& stage = talk.settings.prompt2;
    benchmark::DoNotOptimize(
        isDue(talk.timer, talk.clock.nowMs(), talk.settings.down && stage.enabled,
              (talk.timer.promptsFired & 2) != 0, talk.settings.duration - stage.advance));
  }
}
BENCHMARK(compareWithAlert)->Name("alert before the end, not due | one condition");

void textOfTheTimeLeft(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(timeText(talk.timer, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(textOfTheTimeLeft)->Name("text of the time left | marlune");

void formatTimeLeft(benchmark::State& state) {
  Talk talk;
  for (auto _ : state) {
    const auto left = static_cast<int>(900 - (talk.clock.nowMs() - talk.timer.startedAtMs) / 1000);
    char text[16];
    const int size = std::snprintf(text, sizeof text, "%02d:%02d", left / 60, left % 60);
    benchmark::DoNotOptimize(std::u16string(text, text + size));
  }
}
BENCHMARK(formatTimeLeft)->Name("text of the time left | snprintf");

constexpr uint64_t kHourOfOvertimeMs = 4'500'000;

void textOfAnHourOfOvertime(benchmark::State& state) {
  Talk talk;
  talk.clock.advance(kHourOfOvertimeMs);
  for (auto _ : state) {
    benchmark::DoNotOptimize(timeText(talk.timer, talk.clock.nowMs(), talk.settings));
  }
}
BENCHMARK(textOfAnHourOfOvertime)->Name("text of an hour of overtime | marlune");

void formatOvertime(benchmark::State& state) {
  Talk talk;
  talk.clock.advance(kHourOfOvertimeMs);
  for (auto _ : state) {
    const auto over = static_cast<int>((talk.clock.nowMs() - talk.timer.startedAtMs) / 1000 - 900);
    char text[32];
    const int size = std::snprintf(text, sizeof text, "%02d:%02d:%02d", over / 3600,
                                   over % 3600 / 60, over % 60);
    benchmark::DoNotOptimize(u"已超时 " + std::u16string(text, text + size));
  }
}
BENCHMARK(formatOvertime)->Name("text of an hour of overtime | snprintf");

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
BENCHMARK(followUnchangedShow)->Name("follow the same slide | marlune");

/// Compares the path, ignoring case by the system's own tables, and the slide.
void compareNames(benchmark::State& state) {
  const std::wstring lastPath = L"C:\\Talks\\A talk of some length.pptx";
  const std::u16string lastKey = u"C:\\Talks\\A talk of some length.pptx#12";
  const std::wstring path = lastPath;
  const std::u16string key = lastKey;
  for (auto _ : state) {
    benchmark::DoNotOptimize(wcscasecmp(path.c_str(), lastPath.c_str()) == 0 && key == lastKey);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(compareNames)->Name("follow the same slide | wcscasecmp and compare");

void followNothing(benchmark::State& state) {
  Talk talk;
  ShowFollower follower;
  const ShowObservation seen{.slideKey = u"#0"};
  for (auto _ : state) {
    followShow(follower, talk.timer, talk.settings, seen, talk.clock.nowMs());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(followNothing)->Name("follow no show | marlune");

[[gnu::noinline]] bool isNews(const ShowFollower& last, const ShowObservation& seen,
                              bool autoMode) {
  return seen.showing != last.wasTracked || autoMode != last.lastAutoMode;
}

void compareFlags(benchmark::State& state) {
  Talk talk;
  ShowFollower follower;
  const ShowObservation seen{.slideKey = u"#0"};
  for (auto _ : state) {
    benchmark::DoNotOptimize(isNews(follower, seen, talk.settings.autoMode));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(compareFlags)->Name("follow no show | one condition");

}  // namespace
}  // namespace mrl
