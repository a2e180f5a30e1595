// Words that all ways of encoding share.
#pragma once

#include <string>

#include "converter/converter.h"
#include "converter/staging.h"
#include "converter/words.h"
#include "film/film.h"

namespace animate {

// What is read: the frames.
Words InputOf(const Converter& converter, const Film& film, const Staging& staging);

// The rate of an output; some filters forget it.
Words RateOf(const Film& film);

// The filters that make the planned pictures and give them out both as "[film]", after the filters
// `way`, and in small, as "[small]".
std::string FilmAndSmall(const Film& film, const std::string& way);

// The output of the small pictures, into the file `name`.
Words SmallOutput(const Film& film, const std::string& name);

}  // namespace animate
