// What has to be known of all pictures before the first is written as a GIF: their colours, and how
// long their pixels stand.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "gif/colour.h"
#include "gif/colour_counts.h"
#include "gif/few_colours.h"

class FilmColours {
 public:
  // Whether of few colours some may be lost, which takes more counting.
  explicit FilmColours(bool mayLoseFew) : mayLoseFew_(mayLoseFew) {}

  // Takes the next picture: the pixels row by row, as many as those of the others. Alpha is 0 or
  // 255. Returns them as entries of Few(); nothing where there are too many colours.
  std::optional<GifScreen> Add(std::span<const Colour> picture);

  // Whether there are few opaque colours; then Table() is just these.
  bool AreFew() const { return few_.AreAll(); }

  // As FewColours has it.
  const std::vector<Colour>& Few() const { return few_.Table(); }

  // The colours that stand for those of all pictures best: 1 to FewColours::kMost.
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
  void CountTurns(std::span<const Colour> picture);
  void CountChanges(std::span<const Colour> picture);
  bool IsWorth(const std::vector<Colour>& table, float bitPrice) const;

  bool mayLoseFew_;
  std::size_t pictures_ = 0;
  std::vector<Colour> before_;
  std::vector<std::uint32_t> changes_;
  ColourCounts counts_{ColourCounts::Care::kThorough};
  FewColours few_;
  // Where some may be lost: how many pixels have each of them, and how many rows of pixels became
  // one colour from another: the later one in the low half.
  std::array<std::size_t, 256> pixelsOfFew_ = {};
  std::unordered_map<std::uint64_t, std::size_t> turns_;
};
