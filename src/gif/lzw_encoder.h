// Compresses the pixels of a GIF image.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "gif/lzw_codes.h"
#include "gif/lzw_strings.h"

// The pixels of an image, row by row, as entries of its colour table.
struct LzwPixels {
  // What each pixel may be: either of two entries, which show the same. Equal where there is only
  // one. Both have the same number of pixels, at least one.
  std::span<const std::uint8_t> one;
  std::span<const std::uint8_t> other;
  // The bits of the largest entry, 2 to 8.
  int codeSize = 8;
};

// One object serves one image after the other; nothing of one reaches the next.
class LzwEncoder {
 public:
  // Returns the image data, from the byte of the code size to the block terminator. Of the entries
  // that a pixel may be it takes whichever makes the data short.
  std::string Encode(const LzwPixels& pixels);

 private:
  // A known string that the pixels from some place on may be.
  struct Match {
    int code = 0;
    std::size_t length = 0;
  };

  Match Longest(std::size_t start) const;
  Match Choose(std::size_t start, const Match& longest, Match& next) const;
  bool Fits(int code, std::size_t start) const;

  LzwPixels pixels_;
  LzwStrings strings_;
  bool full_ = false;
};
