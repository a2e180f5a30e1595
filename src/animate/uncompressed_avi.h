// Uncompressed AVI files, on systems that can write them.
#pragma once

#include <filesystem>

#include "film/film.h"
#include "film/measurement.h"

namespace animate {

extern const bool kHasUncompressedAvi;

// Makes an uncompressed AVI of the film as the file `target`, and proves it. Throws a Failure when
// a frame cannot be loaded, which it names, and when the file would be larger than the system can
// write or cannot be written.
Measurement MakeUncompressedAvi(const Film& film, const std::filesystem::path& target);

}  // namespace animate
