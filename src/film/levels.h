// The values of colours that are spread over all there are.
#pragma once

#include <cstdint>

namespace animate {

// The value that becomes the darkest, and the one that becomes the brightest; of 255, or of 65535
// in deep frames.
struct Levels {
  std::uint32_t low = 0;
  std::uint32_t high = 0;
};

}  // namespace animate
