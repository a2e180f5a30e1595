// Names that may belong together.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "sequence/name_cut.h"

namespace animate {

struct NameGroup {
  std::string pattern;
  // Of every name, in one order with `pieces`: its index in `texts`.
  std::vector<std::uint32_t> names;
  // `width` pieces for each name.
  std::vector<Piece> pieces;
  std::size_t width = 0;
  // The names of the whole folder, which outlive the group.
  const std::vector<std::string>* texts = nullptr;

  const std::string& TextOf(std::size_t row) const { return (*texts)[names[row]]; }
  std::span<const Piece> PiecesOf(std::size_t row) const {
    return std::span(pieces).subspan(row * width, width);
  }
};

// The images among `texts`, by their patterns in the order of their first names; those without a
// number have a pattern alone for each of their spellings.
std::vector<NameGroup> GroupNames(const std::vector<std::string>& texts);

}  // namespace animate
