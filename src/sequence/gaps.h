// The step of a counter, and the numbers that are missing by it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sequence/calendar.h"
#include "sequence/decimal.h"

namespace animate {

// Numbers that are missing between two frames.
struct Gap {
  // The frame before, as an index into the frames.
  std::size_t after = 0;
  std::uint64_t count = 0;
  // The first and last missing number.
  std::string first;
  std::string last;
};

// The usual difference between the numbers of neighbouring frames; 0 when they have none.
struct Step {
  std::uint64_t size = 0;
  // How many numbers are missing by it.
  std::uint64_t missing = 0;
};

// The step of a counter of that kind, of the differences that there are between neighbouring
// numbers; all of them above 0, in any order.
Step FindStep(NumberKind kind, std::vector<std::uint64_t> differences);

// A number as it is shown: in plain digits, dates and times as 2024-03-05 11:59:58.
std::string TextOfNumber(NumberKind kind, const Decimal& number);

}  // namespace animate
