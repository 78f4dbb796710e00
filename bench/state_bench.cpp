// The state document of a folder with 1,000 decks, compared with the folder listing that it needs.
#include <benchmark/benchmark.h>

#include "base/text.h"
#include "core/app_fake.h"
#include "presentation/catalogue.h"
#include "remote/state.h"
#include "settings/files_place_posix.h"

namespace mrl {
namespace {

constexpr int kFiles = 1'000;

struct Folder : AppFake {
  Folder() {
    for (int number = 0; number < kFiles; ++number) {
      (void)place.files.create(place.folder + u"/talk " + decimal(number) + u".pptx");
    }
    real.settings.pptFolder = place.folder;
  }
  PosixPlace place;
  App real{platform(place.files, audio)};
};

void describeThousandFiles(benchmark::State& state) {
  Folder folder;
  for (auto _ : state) benchmark::DoNotOptimize(buildStateJson(folder.real));
}
BENCHMARK(describeThousandFiles)->Unit(benchmark::kMillisecond);

void describeThousandFilesMinimum(benchmark::State& state) {
  Folder folder;
  for (auto _ : state) {
    benchmark::DoNotOptimize(listPresentations(folder.place.files, folder.place.folder));
  }
}
BENCHMARK(describeThousandFilesMinimum)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace mrl
