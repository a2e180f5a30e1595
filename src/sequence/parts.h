// The order of names by their numbers, which of these counts the frames, and the parts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sequence/column.h"

namespace animate {

struct Arrangement {
  // The rows in the order of their numbers, the first number first, and then by name.
  std::vector<std::uint32_t> byNumbers;
  // The same with the parts one after the other.
  std::vector<std::uint32_t> order;
  // The number that takes the most values, the last of equals.
  std::size_t counter = 0;
  // The numbers that tell parts: those besides the counter that change, but for points in time in
  // front of it, since days follow each other. In one part when the counter takes no value again
  // under others of them.
  std::vector<std::size_t> tellers;
  // Of every row, in the order of the tellers' numbers.
  std::vector<std::uint32_t> part;
  std::uint32_t parts = 1;
  // Of every place in `order`: equal where the numbers in front of the counter are, and the part.
  // Only from frame to frame of one stretch can numbers be missing.
  std::vector<std::uint32_t> stretch;
};

// `names` are those of the rows, for rows of equal numbers.
Arrangement Arrange(const std::vector<Column>& columns, const std::vector<std::string_view>& names);

}  // namespace animate
