// The numbers that names have at one place, as they are read.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "sequence/calendar.h"
#include "sequence/decimal.h"
#include "sequence/name_group.h"
#include "sequence/time_form.h"

namespace animate {

// Where a number stands in the names of a group: what of a piece is one number, or which pieces are
// one point in time.
struct Source {
  enum class From { kWhole, kFraction, kExponent, kDecimal, kTime };

  From from = From::kWhole;
  std::size_t piece = 0;
  TimeForm time;

  NumberKind Kind() const;
};

// Where the number stands in one name: its first byte and the one behind its last.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};
Span SpanOf(const Source& source, std::span<const Piece> pieces);

struct Column {
  NumberKind kind = NumberKind::kWhole;
  // One for each row: the values in units of `places` decimal places; or, where one of them is too
  // long for that, their ranks.
  std::vector<std::int64_t> keys;
  int places = 0;
  // The values, where the keys are ranks.
  std::vector<Decimal> ranked;

  bool HasRanks() const { return !ranked.empty(); }
  Decimal ValueOf(std::size_t row) const {
    return HasRanks() ? ranked[row] : Decimal(keys[row], places);
  }
};

// Reads the number of the rows of a group; points in time count in seconds.
Column ReadColumn(const NameGroup& group, const std::vector<std::uint32_t>& rows,
                  const Source& source);

}  // namespace animate
