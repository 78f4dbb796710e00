// The settings file at its largest, and the search in window titles, compared with the least work
// that could do.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "settings/path_rules.h"
#include "settings/settings_format.h"

namespace mrl {
namespace {

Settings largestRecord() {
  Settings record;
  for (int i = 0; i < 10000; ++i) {
    record.skipList.push_back(u"C:\\Users\\speaker\\Documents\\演示文稿\\talk " + decimal(i) +
                              u".pptx");
  }
  return record;
}

void compose(benchmark::State& state) {
  const Settings record = largestRecord();
  for (auto _ : state) benchmark::DoNotOptimize(composeSettings(record));
}
BENCHMARK(compose)->Unit(benchmark::kMillisecond);

/// The least: every text is copied once.
void composeMinimum(benchmark::State& state) {
  const Settings record = largestRecord();
  for (auto _ : state) {
    std::u16string all;
    for (const std::u16string& path : record.skipList) all += path;
    benchmark::DoNotOptimize(all);
  }
}
BENCHMARK(composeMinimum)->Unit(benchmark::kMillisecond);

void parse(benchmark::State& state) {
  const std::string bytes = composeSettings(largestRecord());
  for (auto _ : state) {
    Settings record;
    std::u16string error;
    benchmark::DoNotOptimize(parseSettings(bytes, record, error));
  }
}
BENCHMARK(parse)->Unit(benchmark::kMillisecond);

/// The least: every byte is read once, and every text gets its own memory.
void parseMinimum(benchmark::State& state) {
  const std::string bytes = composeSettings(largestRecord());
  for (auto _ : state) {
    std::vector<std::u16string> lines;
    for (auto at = bytes.begin(); at != bytes.end();) {
      const auto end = std::find(at, bytes.end(), '\n');
      lines.emplace_back(at, end);
      at = end + 1;
    }
    benchmark::DoNotOptimize(lines);
  }
}
BENCHMARK(parseMinimum)->Unit(benchmark::kMillisecond);

std::vector<std::u16string> titles() {
  std::vector<std::u16string> all;
  for (int i = 0; i < 10000; ++i) all.push_back(u"my_talk" + decimal(i) + u".pptx  -  PowerPoint");
  return all;
}

void searchTitles(benchmark::State& state) {
  const std::vector<std::u16string> all = titles();
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::count_if(all.begin(), all.end(), [](const std::u16string& title) {
      return titleNamesDocument(title, u"C:\\Talks\\talk9.pptx");
    }));
  }
}
BENCHMARK(searchTitles)->Unit(benchmark::kMillisecond);

/// The least: a plain search in each title.
void searchTitlesMinimum(benchmark::State& state) {
  const std::vector<std::u16string> all = titles();
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::count_if(all.begin(), all.end(), [](const std::u16string& title) {
      return title.find(u"talk9") != std::u16string::npos;
    }));
  }
}
BENCHMARK(searchTitlesMinimum)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace mrl
