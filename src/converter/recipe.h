// How the converter makes each format.
#pragma once

#include <string>

#include "converter/words.h"
#include "film/format.h"

namespace animate {

struct Recipe {
  // The extension of the format that it is for.
  std::string extension;
  // The converter's names for the container, to write and to read it, and for the codec.
  std::string muxer;
  std::string demuxer;
  std::string codec;
  // What follows the codec.
  Words parameters;
  // Whether the colours are gathered in a palette first.
  bool hasPalette = false;
};

// The recipe for a format; every format has one.
const Recipe& RecipeFor(const Format& format);

}  // namespace animate
