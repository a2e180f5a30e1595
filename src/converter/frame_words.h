// The converter's words for taking frames in.
#pragma once

#include <string>

#include "converter/words.h"
#include "film/film.h"

namespace animate {

// Whether the same filters go on at a frame of another size or form, or begin anew.
enum class Filters { kOfAll, kOfEachSize };

// How the frames under the names of `pattern`, numbered from 1 on, are read.
Words InputWords(const Film& film, const std::string& pattern, Filters filters = Filters::kOfAll);

}  // namespace animate
