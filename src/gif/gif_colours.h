// The colours of an animated GIF, and its tables of them.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "gif/indexed_picture.h"

// A colour as one number: red, green and blue from the lowest byte on, and above them 255; a
// transparent one is 0.
using GifColour = std::uint32_t;
inline constexpr GifColour kTransparent = 0;

inline GifColour ToGifColour(const Colour& colour) {
  static_assert(std::endian::native == std::endian::little);
  const auto number = std::bit_cast<GifColour>(colour);
  return colour.alpha == 0 ? kTransparent : number;
}

struct GifColourUse {
  GifColour colour = kTransparent;
  std::size_t pixels = 0;
};

// A colour table, and which of its entries is transparent.
class GifTable {
 public:
  static constexpr int kNoEntry = -1;

  // Holds at most 256 `colours` once each, those of most pixels first, and a transparent one if
  // that is wanted and there is a place left.
  GifTable(std::vector<GifColourUse> colours, bool wantsTransparent);

  // The entry of a colour, 0 to 255; kNoEntry for none.
  int EntryOf(GifColour colour) const;

  // 1 to 8: the table has two to the power of this entries.
  int Bits() const;

  // Red, green and blue of each entry.
  std::string Bytes() const;

 private:
  std::vector<GifColour> colours_;
  // Each colour with its entry, in the order of the colours.
  std::vector<std::pair<GifColour, int>> entries_;
};
