#include "sequence/evidence.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace animate {
namespace {

// The digits behind the marks of decimals or between counters.
struct Fractions {
  std::uint32_t shortest = std::numeric_limits<std::uint32_t>::max();
  std::uint32_t longest = 0;
  // One is padded, as 05 is; one is 0 alone, which a counter can be as well.
  bool hasPadded = false;
  bool hasZero = false;
  // The longest that ends in 0.
  std::uint32_t longestRound = 0;

  void Add(std::string_view digits) {
    const auto size = static_cast<std::uint32_t>(digits.size());
    shortest = std::min(shortest, size);
    longest = std::max(longest, size);
    hasZero = hasZero || digits == "0";
    hasPadded = hasPadded || (size > 1 && digits.front() == '0');
    if (digits.back() == '0') {
      longestRound = std::max(longestRound, size);
    }
  }

  // As after 9 comes 10; who writes decimals in several lengths leaves such a 0 away.
  bool AreCounters() const { return longestRound > shortest; }
  bool AreDecimals() const {
    return shortest < longest && (hasPadded || (hasZero && !AreCounters()));
  }
};

}  // namespace

Evidence WeighPiece(const NameGroup& group, std::size_t piece) {
  Fractions fractions;
  bool forms[4] = {};
  bool isPower = false;
  bool isPaddedPower = false;
  for (std::size_t row = 0; row < group.names.size(); ++row) {
    const Piece& p = group.PiecesOf(row)[piece];
    const std::string_view name = group.TextOf(row);
    forms[(p.fraction != 0 ? 1 : 0) + (p.exponent != 0 ? 2 : 0)] = true;
    if (p.exponent == 0) {
      if (p.fraction != 0) {
        fractions.Add(p.FractionDigits(name));
      }
    } else if (p.exponentSign != 'e' || p.fraction != 0) {
      isPower = true;
    } else {
      // Of 01e02 neither number is a power of ten.
      isPaddedPower = isPaddedPower || (p.whole > 1 && name[p.at] == '0');
    }
  }
  const auto formCount = std::count(std::begin(forms), std::end(forms), true);
  if (formCount == 1 && forms[0]) {
    return Evidence::kNoMark;
  }
  const bool isDecimal = formCount > 1 || isPower || fractions.AreDecimals();
  const bool isWhole = isPaddedPower || fractions.AreCounters();
  return isDecimal == isWhole ? Evidence::kNone : isDecimal ? Evidence::kDecimal : Evidence::kWhole;
}

}  // namespace animate
