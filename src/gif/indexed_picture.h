// A picture whose pixels are entries of a table of colours.
#pragma once

#include <cstdint>
#include <vector>

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  // 0 or 255; what the others of a transparent colour are says nothing.
  std::uint8_t alpha = 255;
};

inline bool IsOpaque(const Colour& colour) {
  return colour.alpha != 0;
}

struct IndexedPicture {
  // In pixels.
  int width = 0;
  int height = 0;
  // Row by row, width * height of them, each below the number of colours.
  std::vector<std::uint8_t> indices;
  // 1 to 256 of them, in any order; some may be equal.
  std::vector<Colour> palette;
};
