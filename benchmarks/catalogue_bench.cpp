// Lists a big folder, compared with the least work that could do.
#include <benchmark/benchmark.h>

#include "presentation/catalogue.h"
#include "resolved_names_posix.h"

namespace mrl {
namespace {

constexpr int kFiles = 10'000;

BigFolder& bigFolder() {
  static BigFolder folder(kFiles);
  return folder;
}

void listFiles(benchmark::State& state) {
  BigFolder& big = bigFolder();
  for (auto _ : state) {
    const auto list = listPresentations(big.place.files, big.place.folder);
    if (list.size() != kFiles) state.SkipWithError("files are missing");
  }
}
BENCHMARK(listFiles)->Name("list a folder of 10,000 decks | marlune");

void resolveNames(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(resolvedNames(bigFolder()));
}
BENCHMARK(resolveNames)->Name("list a folder of 10,000 decks | readdir, realpath");

}  // namespace
}  // namespace mrl
