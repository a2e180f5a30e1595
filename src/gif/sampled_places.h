// Some of many pixels, that tell what colours there are.
#pragma once

#include <cstddef>
#include <cstdint>

// Calls `take` with places below `count`, each larger than the one before: all of them, or about
// 100,000 where there are more, in no pattern that a picture could have too.
template <typename Take>
void ForSampledPlaces(std::size_t count, std::uint32_t seed, const Take& take) {
  constexpr std::size_t kEnough = 100000;
  // The mean of 1 to twice a step less one is a step.
  const std::size_t steps = 2 * (count / kEnough + 1) - 1;
  std::uint32_t random = seed;
  for (std::size_t place = 0; place < count; place += 1 + (random >> 16U) % steps) {
    take(place);
    random = random * 1664525U + 1013904223U;
  }
}
