// What an MP4 or QuickTime file says of its pictures.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>

#include "animate/options.h"

namespace animate {

struct MovieIndex {
  std::size_t frames = 0;
  // From the first frame to the last, in ticks of so many seconds.
  long long span = 0;
  double tick = 0;
  Size size;
};

// Reads the index of the file at `path`. Returns nothing unless the file is whole: every box ends
// inside it, and so does the data of every picture.
std::optional<MovieIndex> ReadMovieIndex(const std::filesystem::path& path);

}  // namespace animate
