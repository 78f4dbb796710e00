// Lists a big folder, compared with the least work that could do.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <limits.h>

#include <cstdlib>
#include <string>

#include "presentation/catalogue.h"
#include "settings/files_place_posix.h"

namespace mrl {
namespace {

constexpr int kFiles = 10'000;

struct BigFolder {
  BigFolder() {
    for (int number = 0; number < kFiles; ++number) {
      (void)place.files.create(place.folder + u"/talk " + decimal(number) + u".pptx");
    }
  }
  PosixPlace place;
};

void listTenThousandFiles(benchmark::State& state) {
  BigFolder big;
  for (auto _ : state) {
    const auto list = listPresentations(big.place.files, big.place.folder);
    if (list.size() != kFiles) state.SkipWithError("files are missing");
  }
}
BENCHMARK(listTenThousandFiles)->Unit(benchmark::kMillisecond);

/// The least: iterates over the folder and resolves each name with the system's own call.
void listTenThousandFilesMinimum(benchmark::State& state) {
  const BigFolder big;
  const std::string folder = utf8From(big.place.folder);
  for (auto _ : state) {
    DIR* const opened = opendir(folder.c_str());
    char resolved[PATH_MAX];
    while (const dirent* entry = readdir(opened)) {
      benchmark::DoNotOptimize(realpath((folder + "/" + entry->d_name).c_str(), resolved));
    }
    closedir(opened);
  }
}
BENCHMARK(listTenThousandFilesMinimum)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace mrl
