// The common part and the order of frames for the name shapes that solvers and viewers leave.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "frames/get_cae_data.h"
#include "log/diagnostic_log.h"

namespace {

CString FrameName(int number) {
  return "frame_" + std::to_string(number) + ".png";
}

CString PaddedName(int number) {
  CString name;
  name.Format("img_%06d.png", number);
  return name;
}

CString TwoCounterName(int number) {
  return "shot_" + std::to_string(number / 100) + "_" + std::to_string(number % 100) + ".png";
}

void OrderFrames(benchmark::State& state, CString (*nameOf)(int)) {
  InitLog("no such folder\\log.txt", true);
  std::vector<std::string> names;
  for (int number = 1; number <= state.range(0); ++number) {
    names.push_back(nameOf(number));
  }
  // As a folder listing returns them.
  std::sort(names.begin(), names.end());
  k3dGetCAEData scanned;
  scanned.m_sDirectoryName = "folder";
  for (const std::string& name : names) {
    scanned.m_saFileNames.Add(name);
  }
  for (auto _ : state) {
    state.PauseTiming();
    k3dGetCAEData data = scanned;
    state.ResumeTiming();
    if (!data.GetCommonFileName() || !data.GetCAEData()) {
      state.SkipWithError("no order found");
    }
  }
  state.SetComplexityN(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMicrosecond)->Complexity();
}

BENCHMARK_CAPTURE(OrderFrames, frame_d, FrameName)->Apply(Sizes);
BENCHMARK_CAPTURE(OrderFrames, img_06d, PaddedName)->Apply(Sizes);
BENCHMARK_CAPTURE(OrderFrames, shot_d_d, TwoCounterName)->Apply(Sizes);

}  // namespace
