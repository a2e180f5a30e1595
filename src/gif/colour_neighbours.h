// The entries of a colour table that are like an entry.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "gif/colour.h"

class ColourNeighbours {
 public:
  struct Neighbour {
    std::uint8_t entry = 0;
    int distance = 0;
  };

  // `table` has 1 to 256 opaque colours.
  explicit ColourNeighbours(std::vector<Colour> table);

  const std::vector<Colour>& Table() const { return table_; }

  // Itself, and the 15 nearest to it, fewer in a small table, in the order of their ColourDistance.
  std::span<const Neighbour> Of(std::size_t entry) const {
    return std::span(neighbours_).subspan(entry * kept_, kept_);
  }

 private:
  void Fill(std::size_t entry);

  std::vector<Colour> table_;
  std::size_t kept_;
  std::vector<Neighbour> neighbours_;
};
