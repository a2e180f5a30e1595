#include "converter/levels.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <string>

#include "converter/frame_words.h"
#include "film/failure.h"

namespace animate {

Levels MeasureLevels(const Converter& converter, const Film& film, const Staging& staging) {
  // The filter that measures takes the planes of red, green and blue for those it knows.
  const std::string depth = film.isDeep ? "16le" : "";
  const std::string measure =
      "scale=iw:ih,format=" + std::string(film.isDeep ? "rgb48le" : "rgb24") + ",format=gbrp" +
      depth + ",mergeplanes=0x000102:yuv444p" + depth + ",signalstats,metadata=print:file=-";
  Levels levels = {std::numeric_limits<std::uint32_t>::max(), 0};
  const auto take = [&](const std::string& line) {
    char plane = 0;
    char end = 0;
    std::uint32_t value = 0;
    if (std::sscanf(line.c_str(), "lavfi.signalstats.%cMI%c=%u", &plane, &end, &value) == 3) {
      levels.low = std::min(levels.low, value);
    } else if (std::sscanf(line.c_str(), "lavfi.signalstats.%cMA%c=%u", &plane, &end, &value) ==
               3) {
      levels.high = std::max(levels.high, value);
    }
  };
  const auto read = converter.ReadLines(
      Joined(converter.Threads(), InputWords(film, staging.Pattern(), Filters::kOfEachSize),
             Words{"-vf", measure, "-vsync", "0", "-f", "null", "-"}),
      staging.Folder(), take);
  if (!read) {
    throw Failure(read.Reason());
  }
  if (levels.low > levels.high) {
    throw Failure("the converter does not say which values the frames have");
  }
  return levels;
}

}  // namespace animate
