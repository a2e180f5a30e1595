// What the names of a group tell of the marks in their numbers.
#pragma once

#include "sequence/name_group.h"

namespace animate {

enum class Evidence { kNoMark, kDecimal, kWhole, kNone };

// What the marks and exponents of a piece are by all names of the group: none there, those of
// decimals, those between counters; kNone when nothing tells, or both.
Evidence WeighPiece(const NameGroup& group, std::size_t piece);

}  // namespace animate
