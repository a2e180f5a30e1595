// Films that fit into a number of bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Makes the best animation of at most `most` bytes as the file `target`, as Encode does: the
// quality of the film is the highest that is tried. It goes down first, to 40, then both sides of
// the picture do, in steps of a twentieth of their length. Returns the film that was made. Throws a
// Failure when a quarter of each side is too large still, and as Encode does.
Film EncodeWithin(std::uint64_t most, const Converter& converter, const Film& film,
                  const Staging& staging, const std::filesystem::path& target,
                  const std::function<void(std::size_t)>& progress);

// `film` with pictures of so many hundredths of its sides.
Film Shrunk(const Film& film, int percent);

// The largest number from `low` to `high` for which `size` is at most `most`; `low` - 1 when there
// is none. The sizes have to grow with the numbers, and few of them are asked for.
int LargestWithin(std::uint64_t most, int low, int high,
                  const std::function<std::uint64_t(int)>& size);

}  // namespace animate
