// What has to be known of all pictures before the first is written as a GIF: their colours, and how
// long their pixels stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "gif/colour_counts.h"
#include "gif/indexed_picture.h"

class FilmColours {
 public:
  // One colour of 256 is left to transparent pixels.
  static constexpr std::size_t kMost = 255;

  // Whether of few colours some may be lost, which takes more counting.
  explicit FilmColours(bool mayLoseFew) : mayLoseFew_(mayLoseFew) {}

  // Takes the next picture: the pixels row by row, as many as those of the others. Alpha is 0 or
  // 255.
  void Add(std::span<const Colour> picture);

  // Whether there are at most kMost opaque colours; then Table() is just these.
  bool AreFew() const { return exact_.size() <= kMost; }

  // The colours that stand for those of all pictures best: 1 to kMost.
  std::vector<Colour> Table() const;

  // Of few colours, some of which may be lost, only as many as are worth it where a bit of the file
  // is worth an error of `bitPrice`, as LossyImage has it: pixels that fade then change more
  // rarely. Otherwise the same.
  std::vector<Colour> TableFor(float bitPrice) const;

  // For how many pictures a pixel stands on an average, 1 or more.
  float LifeOf(std::size_t pixel) const {
    return static_cast<float>(pictures_) / (1 + static_cast<float>(changes_[pixel]));
  }

  std::size_t Pictures() const { return pictures_; }

 private:
  void AddExactly(std::span<const Colour> picture);
  void CountTurns(std::span<const Colour> picture);
  void CountChanges(std::span<const Colour> picture);
  bool IsWorth(const std::vector<Colour>& table, float bitPrice) const;

  bool mayLoseFew_;
  std::size_t pictures_ = 0;
  std::vector<Colour> before_;
  std::vector<std::uint32_t> changes_;
  ColourCounts counts_{ColourCounts::Care::kThorough};
  // The opaque colours and how many pixels have each, until there are too many colours.
  std::unordered_map<std::uint32_t, std::size_t> exact_;
  // How many rows of pixels became one colour from another: the later one in the low half.
  std::unordered_map<std::uint64_t, std::size_t> turns_;
};
