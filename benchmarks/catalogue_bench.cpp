// Lists a big folder, compared with the least work that could do.
#include <benchmark/benchmark.h>

#include "presentation/catalogue.h"
#include "resolved_names_posix.h"

namespace mrl {
namespace {

constexpr int kFiles = 10'000;

void listFiles(benchmark::State& state) {
  BigFolder big(kFiles);
  for (auto _ : state) {
    const auto list = listPresentations(big.place.files, big.place.folder);
    if (list.size() != kFiles) state.SkipWithError("files are missing");
  }
}
BENCHMARK(listFiles)->Name("list a folder of 10,000 decks | marlune");

void resolveNames(benchmark::State& state) {
  const BigFolder big(kFiles);
  for (auto _ : state) benchmark::DoNotOptimize(resolvedNames(big));
}
BENCHMARK(resolveNames)->Name("list a folder of 10,000 decks | readdir, realpath");

}  // namespace
}  // namespace mrl
