// The times of a GIF, which counts hundredths of a second.
#pragma once

#include <cmath>
#include <cstddef>

#include "film/rate.h"

namespace animate {

// When the picture of a number, from 0 on, begins to be shown, in hundredths of a second: as near
// as can be, so that what is rounded does not add up.
inline long long GifTime(std::size_t number, const Rate& rate) {
  constexpr double kHundredths = 100;
  return std::llround(static_cast<double>(number) * kHundredths / rate.value);
}

// For how long it is shown.
inline int GifDelay(std::size_t number, const Rate& rate) {
  return static_cast<int>(GifTime(number + 1, rate) - GifTime(number, rate));
}

}  // namespace animate
