// A sheet of small pictures, to look at.
#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// The frames that are on the sheet, as indices into the film's frames: up to 48, spread evenly over
// all that are shown, the first and the last among them.
std::vector<std::size_t> FramesOnSheet(const Film& film);

// Makes the sheet, a PNG, as the file `target`, which is there and empty, and proves it. Throws a
// Failure when the converter reports any error, and when a cell is not its frame.
void MakeContactSheet(const Converter& converter, const Film& film, const Staging& staging,
                      const std::filesystem::path& target);

}  // namespace animate
