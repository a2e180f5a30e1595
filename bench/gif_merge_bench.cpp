// Merging 400 single-frame GIFs into one, beside general tools that read and write the same files.
// The bytes of the input are what is counted.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "gif/gif_anim_creator.h"
#include "platform/files.h"
#include "tests/support/gif_builder.h"
#include "tests/support/temp_folder.h"

namespace {

constexpr int kFrames = 400;
constexpr int kWidth = 640;
constexpr int kHeight = 480;

// A moving gradient in every other frame, noise in the rest.
std::string Pixels(int frame, std::mt19937& random) {
  std::string pixels;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      pixels += static_cast<char>(frame % 2 == 0 ? (x + 2 * y + 3 * frame) / 4
                                                 : static_cast<int>(random() >> 8));
    }
  }
  return pixels;
}

// The frames, made once.
struct Frames {
  Frames() {
    std::mt19937 random(1);
    for (int frame = 0; frame < kFrames; ++frame) {
      const std::string gif = GifOfPixels(kWidth, kHeight, 8, Pixels(frame, random));
      const std::string name = "frame_" + std::to_string(1000 + frame) + ".gif";
      folder.Write(name, gif);
      paths.push_back(folder / name);
      bytes += static_cast<long>(gif.size());
    }
  }

  TempFolder folder;
  std::vector<std::string> paths;
  long bytes = 0;
};

const Frames& TheFrames() {
  static const Frames frames;
  return frames;
}

void Merge(benchmark::State& state) {
  const Frames& frames = TheFrames();
  for (auto _ : state) {
    const platform::OwnedFile output = platform::OpenFile(frames.folder / "merged", "wb");
    int first = 1;
    for (const std::string& path : frames.paths) {
      g_gifAnimCreator.AppendGifFile(path, output.get(), first);
      first = 0;
    }
    std::fputc(';', output.get());
  }
  state.SetBytesProcessed(state.iterations() * frames.bytes);
}

// Runs a command of the shell on the frames, its output in a file beside them.
void RunCommand(benchmark::State& state, const std::string& command) {
  const Frames& frames = TheFrames();
  const std::string line =
      "cd '" + frames.folder.Path() + "' && " + command + " frame_*.gif > " + "other";
  for (auto _ : state) {
    if (std::system(line.c_str()) != 0) {
      state.SkipWithError("the command failed");
    }
  }
  state.SetBytesProcessed(state.iterations() * frames.bytes);
}

BENCHMARK(Merge)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(RunCommand, gifsicle, "gifsicle -m")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(RunCommand, cat, "cat")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
