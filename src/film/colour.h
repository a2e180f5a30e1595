// A colour without transparency.
#pragma once

#include <cstdint>

namespace animate {

// White unless said otherwise.
struct Colour {
  std::uint8_t red = 255;
  std::uint8_t green = 255;
  std::uint8_t blue = 255;

  bool operator==(const Colour&) const = default;
};

}  // namespace animate
