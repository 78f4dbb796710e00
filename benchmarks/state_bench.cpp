// The state document of a folder with 1,000 decks, compared with the least work that could do.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>

#include "core/app_fake.h"
#include "remote/state.h"
#include "resolved_names_posix.h"

namespace mrl {
namespace {

constexpr int kDecks = 1'000;

BigFolder& decks() {
  static BigFolder folder(kDecks);
  return folder;
}

struct DecksApp : AppFake {
  DecksApp() { real.settings.pptFolder = decks().place.folder; }
  App real{platform(decks().place.files, audio)};
};

void describeFiles(benchmark::State& state) {
  DecksApp fakes;
  for (auto _ : state) benchmark::DoNotOptimize(buildStateJson(fakes.real));
}
BENCHMARK(describeFiles)->Name("state document with 1,000 decks | marlune");

/// Lists the folder, and formats each name as it stands.
void formatNames(benchmark::State& state) {
  for (auto _ : state) {
    std::string document;
    for (const std::string& path : resolvedNames(decks())) {
      char row[PATH_MAX];
      std::snprintf(row, sizeof row, "{\"id\":\"%016zx\",\"name\":\"%s\",\"skip\":false},",
                    std::hash<std::string>{}(path), path.c_str() + path.rfind('/') + 1);
      document += row;
    }
    benchmark::DoNotOptimize(document);
  }
}
BENCHMARK(formatNames)->Name("state document with 1,000 decks | readdir, realpath, snprintf");

}  // namespace
}  // namespace mrl
