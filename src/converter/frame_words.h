// The converter's words for taking frames in.
#pragma once

#include <cstddef>
#include <string>

#include "converter/words.h"
#include "film/film.h"

namespace animate {

// How the frames under the names of `pattern` are read, from the one with the number `first` on.
Words InputWords(const Film& film, const std::string& pattern, std::size_t first = 1);

}  // namespace animate
