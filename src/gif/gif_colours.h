// The colours of an animated GIF, and its tables of them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gif/indexed_picture.h"

// A colour as one number: red, green and blue from the lowest byte on, and above them 255; a
// transparent one is 0.
using GifColour = std::uint32_t;
inline constexpr GifColour kTransparent = 0;

// What each pixel of the screen shows, row by row.
using GifScreen = std::vector<GifColour>;

GifColour ToGifColour(const Colour& colour);

// A colour table, and which of its entries is transparent.
class GifTable {
 public:
  // Takes over the `colours`, none of them transparent or twice, and finds a place for a
  // transparent entry if there is one.
  explicit GifTable(const std::vector<GifColour>& colours);

  // The entry of a colour, or of the transparent one; -1 for none.
  int EntryOf(GifColour colour) const;

  // 1 to 8: the number of entries is the power of two.
  int Bits() const;

  // Three bytes an entry.
  std::string Bytes() const;

 private:
  std::vector<GifColour> colours_;
};
