// Compresses the pixels of a GIF image, some of them changed to make it shorter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "gif/colour.h"
#include "gif/colour_neighbours.h"

// What a code costs in bits: its width, and its part of the clearings and of strings that nothing
// comes of.
inline constexpr float kBitsOfCode = 14;

// What stands for no price: no error is small beside it.
inline constexpr float kLeastBitPrice = 1e-3F;

// What a pixel should be, and what its errors cost. Errors are colour distances.
struct LossyPixel {
  static constexpr int kNever = std::numeric_limits<int>::max();

  Colour wanted;
  // The error of the entry nearest to that; kNever where the pixel must be transparent.
  int drawn = 0;
  // The error when the pixel stays what it is, transparent; kNever where it must not.
  int staying = kNever;
  // How much its error counts beside those of others, 1 or more: for how many pictures it stands.
  float weight = 1;
  std::uint8_t nearest = 0;
  // Whether it should be what it should not have been in the picture before.
  bool isNew = true;
  // Whether it should rather be drawn where that is as good as staying.
  bool isBetterDrawn = false;

  // The least error it can have.
  int Least() const { return drawn < staying ? drawn : staying; }
};

struct LossyImage {
  // Row by row, at least one.
  std::span<const LossyPixel> pixels;
  // The opaque entries of the table, and the entry after them, which is transparent.
  const ColourNeighbours* colours = nullptr;
  int transparent = 0;
  // The bits of the largest entry, 2 to 8.
  int codeSize = 8;
  // The error that is worth a bit; 0 for none but the least.
  float bitPrice = 0;
};

struct LossyData {
  // From the byte of the code size to the block terminator.
  std::string bytes;
  // What each pixel became.
  std::vector<std::uint8_t> entries;
};

// For each code it takes the string that is best in errors and bits together: each pixel that a
// string reaches is worth what it would cost in the strings to come, which is guessed from those
// that went before. No pixel's error grows by more than a code of its own would cost.
//
// An image encoded in several parts has both cores at work, and is longer by what each part could
// have had from the strings of the one before: little where these are cleared anyway. There is at
// least one, and a pixel for each.
LossyData EncodeLossily(const LossyImage& image, std::size_t parts);
