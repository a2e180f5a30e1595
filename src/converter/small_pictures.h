// Pictures in small, by which a finished film is compared with the planned one.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "film/film.h"
#include "film/measurement.h"

namespace animate {

// The converter's filters that make small pictures of the planned ones: a grid of cells, each with
// the mean red, green and blue of its pixels.
std::string PlannedInSmall(const Film& film);

// The same for the pictures of the finished film, in the colours of its format.
std::string SeenInSmall(const Film& film);

// The numbers of a planned picture and of one in the finished file that has to show it.
struct Pair {
  std::size_t planned = 0;
  std::size_t seen = 0;
};

// Each of `count` pictures and the one of the same number.
std::vector<Pair> InOrder(std::size_t count);

// Compares the small pictures in two files, those that were planned and those that are seen in the
// finished film, which messages call `name`. `pairs` has all of both, in their order. Returns the
// largest difference of a colour in a cell, and where it is. Throws a Failure when one is larger
// than what the coder may lose, when a picture as a whole has other colours or is more like a
// neighbour's, and when a file has not the pictures of the pairs.
Likeness ComparePictures(const Film& film, const std::filesystem::path& planned,
                         const std::filesystem::path& seen, const std::vector<Pair>& pairs,
                         const std::string& name = "file");

// The number of the first picture of which the two files have different small ones; nothing when
// all are the same.
std::optional<std::size_t> FirstOther(const Film& film, const std::filesystem::path& planned,
                                      const std::filesystem::path& again);

}  // namespace animate
