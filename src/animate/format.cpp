#include "animate/format.h"

#include <algorithm>
#include <iterator>

namespace animate {
namespace {

using Words = std::vector<std::string>;

const Words kYuv = {"-pix_fmt", "yuv420p"};
const Words kGoodMpeg4 = {"-q:v", "2", "-pix_fmt", "yuv420p"};
const Words kBest = {"-q:v", "1"};
const Words kConstantQuality = {"-crf",      "24", "-b:v",    "0", "-deadline", "good",
                                "-cpu-used", "4",  "-row-mt", "1", "-pix_fmt",  "yuv420p"};
// Every frame keeps its transparency, and colours when the first one has none.
const Words kForever = {"-plays", "0", "-pix_fmt", "rgba"};

// A GIF frame stands a whole number of hundredths of a second, players take less than two for ten,
// and the number has 16 bits. A SWF rate is a number of 8 bits with 8 more after the point.
const Format kFormats[] = {
    {"mp4", "mp4", "mov", "libx264", kYuv, true},
    {"mov", "mov", "mov", "libx264", kYuv, true},
    {"webm", "webm", "matroska", "libvpx-vp9", kConstantQuality},
    {"gif", "gif", "gif", "gif", {"-loop", "0"}, false, true, 0.002, 50},
    {"apng", "apng", "apng", "apng", kForever, false, false, 0.001},
    {"avi", "avi", "avi", "msmpeg4v3", kGoodMpeg4},
    {"wmv", "asf", "asf", "msmpeg4v3", kBest},
    {"flv", "flv", "flv", "flv1", kBest},
    {"swf", "swf", "swf", "flv1", kBest, false, false, 1, 255, 1.0 / 256},
};

}  // namespace

const Format* FindFormat(const std::string& extension) {
  std::string wanted = extension;
  std::transform(wanted.begin(), wanted.end(), wanted.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  const auto* const found =
      std::find_if(std::begin(kFormats), std::end(kFormats),
                   [&](const Format& format) { return format.extension == wanted; });
  return found == std::end(kFormats) ? nullptr : found;
}

}  // namespace animate
