// Compresses the pixels of a GIF image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "gif/lzw_clearing.h"
#include "gif/lzw_codes.h"
#include "gif/lzw_strings.h"

// The pixels of an image, row by row, as entries of its colour table.
struct LzwPixels {
  // What each pixel may be: either of two entries, which show the same; equal where there is only
  // one. Both have the same number of pixels, at least one. Where strings of the same length are
  // known the one with `one` is taken.
  std::span<const std::uint8_t> one;
  std::span<const std::uint8_t> other;
  // The bits of the largest entry, 2 to 8.
  int codeSize = 8;
  // While there is place for new strings: how many pixels shorter than it could be a string is at
  // most, so that it and the next one reach farther, and by how many pixels, 1 or more, these then
  // have to. That costs the table a string; so the longer the strings are, the more it has to be.
  std::size_t mostBack = 2;
  std::size_t leastGain = 2;
  // As LzwClearing has it.
  int window = LzwClearing::kUsualWindow;
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
  // Two of them, the second where the first ends.
  struct Matches {
    Match first;
    Match second;
  };

  Match Longest(std::size_t start) const;
  Match LongestOfBoth(int code, std::size_t start, std::size_t place) const;
  Matches Choose(std::size_t start, const Match& longest) const;
  Match AddString(const Matches& matches, std::size_t place, int added);
  bool Fits(int code, std::size_t start) const;
  bool MayBe(int pixel, std::size_t place) const {
    return pixel == pixels_.one[place] || pixel == pixels_.other[place];
  }

  LzwPixels pixels_;
  LzwStrings strings_;
  // Whether there is a place for another string.
  bool growing_ = true;
};
