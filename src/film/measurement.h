// What a finished animation was found to hold.
#pragma once

#include <cstddef>

#include "film/size.h"

namespace animate {

struct Measurement {
  std::size_t frames = 0;
  // In seconds.
  double length = 0;
  Size size;
};

}  // namespace animate
