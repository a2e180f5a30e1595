// Some of many pixels, that tell what colours there are.
#pragma once

#include <cstddef>
#include <cstdint>

// Calls `take` with places below `count`, each larger than the one before: all of them, or about
// `enough` where there are more, in no pattern that a picture could have too.
template <typename Take>
void ForSampledPlaces(std::size_t count, std::size_t enough, std::uint32_t seed, const Take& take) {
  // The mean of 1 to twice a step less one is a step.
  const std::size_t steps = 2 * (count / enough + 1) - 1;
  std::uint32_t random = seed;
  for (std::size_t place = 0; place < count; place += 1 + (random >> 16U) % steps) {
    take(place);
    random = random * 1664525U + 1013904223U;
  }
}
