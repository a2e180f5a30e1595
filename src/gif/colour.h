// A colour of a pixel.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

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

// A colour as one number: red, green and blue from the lowest byte on, and above them 255; a
// transparent one is 0.
using GifColour = std::uint32_t;
inline constexpr GifColour kTransparent = 0;

inline GifColour ToGifColour(const Colour& colour) {
  static_assert(std::endian::native == std::endian::little);
  const auto number = std::bit_cast<GifColour>(colour);
  return colour.alpha == 0 ? kTransparent : number;
}

// Whether all bytes of equally many colours are the same.
inline bool AreSame(std::span<const Colour> some, std::span<const Colour> others) {
  static_assert(sizeof(Colour) == 4);
  return std::memcmp(some.data(), others.data(), some.size_bytes()) == 0;
}
