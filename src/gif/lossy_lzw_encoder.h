// Compresses the pixels of a GIF image, some of them changed to make it shorter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "gif/indexed_picture.h"
#include "gif/lzw_codes.h"
#include "gif/lzw_strings.h"
#include "gif/nearest_colour.h"

// What a pixel should be, and what its errors cost. Errors are colour distances.
struct LossyPixel {
  static constexpr int kNever = std::numeric_limits<int>::max();

  Colour wanted;
  // The entry nearest to that, and its error; kNever where the pixel must be transparent.
  std::uint8_t nearest = 0;
  int drawn = 0;
  // The error when the pixel stays what it is, transparent; kNever where it must not.
  int staying = kNever;
  // How much its error counts beside those of others, 1 or more: for how many pictures it stands.
  float weight = 1;
  // Whether it should be what it should not have been in the picture before.
  bool isNew = true;

  // The least error it can have.
  int Least() const { return drawn < staying ? drawn : staying; }
};

struct LossyImage {
  // Row by row, at least one.
  std::span<const LossyPixel> pixels;
  // The opaque entries of the table, and the entry after them, which is transparent.
  NearestColour* colours = nullptr;
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
class LossyLzwEncoder {
 public:
  explicit LossyLzwEncoder(const LossyImage& image);

  LossyData Encode();

 private:
  // A known string for the next pixels, and by how much it is better than none.
  struct Way {
    int code = 0;
    std::size_t length = 0;
    float gain = 0;
  };

  Way BestWay(std::size_t start);
  void Begin(std::size_t start);
  void GoOn(const Way& way, std::size_t start, float least);
  void GoOnWith(const Way& way, int code, int entry, const LossyPixel& pixel, float least);
  float Worth(const LossyPixel& pixel) const;
  float Cost(const LossyPixel& pixel, int entry) const;
  void Learn(const Way& way, std::size_t start);
  void TakePixels(const Way& way);

  LossyImage image_;
  LzwCodes codes_;
  LzwStrings strings_;
  std::vector<std::uint8_t> entries_;
  // The string before, and the code of the one that is made of it; kNone for none.
  int before_ = LzwStrings::kNone;
  int made_ = LzwStrings::kNone;
  // Ways yet to be gone on, the best last.
  std::vector<Way> ways_;
  // What a pixel costs lately where it is drawn, and where it stays.
  float priceDrawn_ = 0;
  float priceStaying_ = 0;
};
