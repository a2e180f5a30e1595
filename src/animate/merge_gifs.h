// GIFs without the converter.
#pragma once

#include <filesystem>

#include "film/film.h"
#include "film/measurement.h"

namespace animate {

// Makes one GIF of GIF frames as the file `target`, which is there and empty: their compressed data
// are copied, so nothing is lost. Proves it. Throws a Failure when a frame cannot be merged, which
// it names, and when the file cannot be written.
Measurement MergeGifs(const Film& film, const std::filesystem::path& target);

}  // namespace animate
