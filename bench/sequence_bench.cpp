// The order of a million names, as `sort -V` would have to find it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "sequence/selection.h"

namespace {

void FindOrder(benchmark::State& state) {
  std::vector<std::filesystem::path> names;
  for (int number = 1; number <= state.range(0); ++number) {
    names.emplace_back("frame_" + std::to_string(number) + "_t0.5.png");
  }
  std::shuffle(names.begin(), names.end(), std::mt19937(1));
  for (auto _ : state) {
    benchmark::DoNotOptimize(animate::FindSequence(names, {}));
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(FindOrder)
    ->RangeMultiplier(10)
    ->Range(10000, 1000000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
