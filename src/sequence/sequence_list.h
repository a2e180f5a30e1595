// The sequences among the images of a folder.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sequence/calendar.h"
#include "sequence/decimal.h"
#include "sequence/reading.h"

namespace animate {

// An image of a sequence.
struct Member {
  // An index into the names.
  std::uint32_t name = 0;
  // Which part it is of, counted from 0.
  std::uint32_t part = 0;
  // Equal for members between which numbers can be missing.
  std::uint32_t stretch = 0;
  // Whether all its numbers are those of the member before.
  bool isDouble = false;
  // The counter's.
  Decimal number;
};

// Images that belong together.
struct ImageSequence {
  // In the one spelling of its type.
  std::string extension;
  // What the counter counts.
  NumberKind kind = NumberKind::kWhole;
  // False for an image without a number, which stands alone.
  bool hasNumbers = false;
  // In their order, the parts one after the other.
  std::vector<Member> members;
  // What is left of the names without the numbers that change: of all, and of each part, in which
  // the numbers that tell the parts stay.
  std::string name;
  std::vector<std::string> partNames;
  // Why it cannot be made: its names can be read in two ways, with both and what decides. Empty
  // when there is one way.
  std::string doubt;
};

// All images among `texts`, the largest sequence first, then by their first names.
std::vector<ImageSequence> ListSequences(const std::vector<std::string>& texts, Numbers numbers);

}  // namespace animate
