// How much of each colour there is, and the colours that stand for all best.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "gif/colour.h"

// With more colours than are counted, those that differ in their lowest bits alone are counted as
// one, of their mean. The colours of a map are finer than any fixed cells.
class ColourCounts {
 public:
  enum class Care {
    // Some 4,000 colours are counted.
    kQuick,
    // Some 16,000, and what stands for them is sought for longer: photographs that stand and lose
    // nothing look the better for it.
    kThorough,
  };

  explicit ColourCounts(Care care);

  // Adds `weight`, more than 0, of an opaque colour.
  void Add(const Colour& colour, double weight);

  // Forgets all.
  void Clear();

  // At most `most` colours, 1 or more, none twice, which leave little of the colours' squared
  // distance to the nearest of them. None when nothing was added.
  std::vector<Colour> Choose(std::size_t most) const;

 private:
  struct Count {
    std::uint32_t key = 0;
    double red = 0;
    double green = 0;
    double blue = 0;
    // 0 for a free place.
    double weight = 0;
  };

  std::uint32_t KeyOf(const Colour& colour) const;
  Count& PlaceOf(std::uint32_t key);
  void Coarsen();

  Care care_;
  // A hash table of this power of two in size.
  int placeBits_;
  std::vector<Count> counts_;
  std::size_t used_ = 0;
  // The lowest bits of red, green and blue that are left out of the keys.
  int dropped_ = 0;
};
