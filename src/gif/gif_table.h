// The colour tables of a GIF.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <span>
#include <string>

#include "gif/colour.h"

// A table for so many entries, 1 to 256, has two to the power of this: 1 to 8.
inline int GifTableBits(std::size_t entries) {
  return std::max(1, static_cast<int>(std::bit_width(entries - 1)));
}

// Red, green and blue of each entry of a table that begins with `colours`.
inline std::string GifTableBytes(std::span<const Colour> colours, int bits) {
  std::string bytes;
  bytes.reserve(std::size_t{3} << bits);
  for (const Colour& colour : colours) {
    bytes += {static_cast<char>(colour.red), static_cast<char>(colour.green),
              static_cast<char>(colour.blue)};
  }
  bytes.resize(std::size_t{3} << bits);
  return bytes;
}
