// Compresses pixels that may be drawn in either of two ways.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "gif/lzw_encoder.h"

// Entries of a colour table, row by row, in two ways that show the same; equal where there is only
// one. A pixel that may stay as it is is transparent in `one`.
struct TwoWayPixels {
  std::vector<std::uint8_t> one;
  std::vector<std::uint8_t> other;
  std::size_t width = 0;
  // The bits of the largest entry, 2 to 8.
  int codeSize = 2;
};

// They can be compressed in some styles, none of which is the best for every animation.
inline constexpr std::size_t kGifStyles = 5;

struct StyledData {
  // From the byte of the code size to the block terminator.
  std::string bytes;
  std::size_t style = 0;
};

// Compresses them in a style, which is below kGifStyles.
StyledData CompressInStyle(LzwEncoder& encoder, const TwoWayPixels& pixels, std::size_t style);

// Returns the shortest of `known`, which one style made of them, and of what the others make.
StyledData ShortestOfStyles(LzwEncoder& encoder, const TwoWayPixels& pixels, StyledData known);

// Whether all styles are compared for a frame, the first being 0: for the first ones, which differ,
// and now and then later. Frames are much like those before them, and comparing takes as long as
// writing one in each style.
bool ComparesStyles(std::size_t frame);
