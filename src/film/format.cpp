#include "film/format.h"

#include <algorithm>
#include <iterator>

#include "text/lower_case.h"

namespace animate {
namespace {

// A GIF frame stands a whole number of hundredths of a second, players take less than two for ten,
// and the number has 16 bits. A SWF rate is a number of 8 bits with 8 more after the point.
const Format kFormats[] = {
    {.extension = "mp4", .needsEvenSides = true, .largestShown = {4096, 2304}},
    {.extension = "mov", .needsEvenSides = true, .largestShown = {4096, 2304}},
    {.extension = "webm", .transparency = Transparency::kGradual},
    {.extension = "gif",
     .transparency = Transparency::kWhole,
     .lowestRate = 0.002,
     .highestRate = 50},
    {.extension = "apng",
     .transparency = Transparency::kGradual,
     .isDeep = true,
     .hasQuality = false,
     .lowestRate = 0.001},
    {.extension = "avi"},
    {.extension = "wmv", .needsEvenSides = true},
    {.extension = "flv"},
    {.extension = "swf", .lowestRate = 1, .highestRate = 255, .rateStep = 1.0 / 256},
};

}  // namespace

const Format* FindFormat(const std::string& extension) {
  const std::string wanted = LowerCase(extension);
  const auto* const found =
      std::find_if(std::begin(kFormats), std::end(kFormats),
                   [&](const Format& format) { return format.extension == wanted; });
  return found == std::end(kFormats) ? nullptr : found;
}

}  // namespace animate
