// Pictures in small, by which a finished film is compared with the planned one.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "film/film.h"
#include "film/measurement.h"

namespace animate {

// The converter's filters that make small pictures of those of the film, given in red, green and
// blue: a grid of cells, each with the mean of its colours.
std::string SmallPicture(const Film& film);

// Compares the small pictures in two files, those that were planned and those that are seen in the
// finished film. Returns the largest difference of a colour in a cell, and where it is. Throws a
// Failure when one is larger than what a coder may lose, and when a file has not one for every
// picture of the film.
Likeness ComparePictures(const Film& film, const std::filesystem::path& planned,
                         const std::filesystem::path& seen);

}  // namespace animate
