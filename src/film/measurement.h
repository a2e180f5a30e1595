// What a finished animation was found to hold.
#pragma once

#include <cstddef>
#include <optional>

#include "film/size.h"

namespace animate {

// How like the planned pictures those of the animation are.
struct Likeness {
  // The largest of a colour's mean in a cell of the picture, of 255.
  int difference = 0;
  // The frame of that picture, as an index into the film's.
  std::size_t frame = 0;
  // The lowest and the highest of such means in the planned pictures.
  int darkest = 255;
  int brightest = 0;
  // Whether every pixel was found to be the planned one.
  bool isExact = false;
};

struct Measurement {
  std::size_t frames = 0;
  // In seconds.
  double length = 0;
  Size size;
  // Nothing where the pictures were copied as they are.
  std::optional<Likeness> likeness = std::nullopt;
};

}  // namespace animate
