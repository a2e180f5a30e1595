// Ranges of a counter's numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sequence/findings.h"

namespace animate {

// Numbers from `first` to `last`, both among them; every `step`th from `first` on. Without one of
// them the range is open there, or has every number.
struct Range {
  std::optional<Decimal> first;
  std::optional<Decimal> last;
  std::optional<Decimal> step;

  // With a step, numbers that differ by more than 63 bits of their last decimal place are not.
  bool Contains(const Decimal& number) const;
};

// Reads "100-500", "100-500x5" (100, 105, ...), "100-", "-500" (up to 500), "-10-10" (from minus
// ten), "0.5-2" or "7" (that number alone). Throws a Failure of wrong use for other texts.
Range ReadRange(const std::string& text);

// Keeps the frames with numbers of the range, with gaps of their own. Throws a Failure of wrong use
// when the counter is a date or a time.
void KeepRange(Findings& findings, const Range& range);

// Numbers that follow each other by a step.
struct MissingNumbers {
  std::uint64_t count = 0;
  std::string first;
  std::string last;
};

// The numbers of the range, by its step or else by that of the frames, that no frame has. An open
// end is the first or last number that a frame has. Throws a Failure of wrong use when neither has
// a step, and when the counter is a date or a time.
std::vector<MissingNumbers> FindMissing(const Findings& findings, const Range& range);

}  // namespace animate
