#include "sequence/column.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <span>

namespace animate {
namespace {

// Reads numbers of names one after the other; the text of one is there until the next is read.
class NumberReader {
 public:
  NumberReader(const NameGroup& group, const Source& source) : group_(group), source_(source) {}

  NumberText Read(std::size_t row) {
    const std::string_view name = group_.TextOf(row);
    const auto pieces = group_.PiecesOf(row);
    const Piece& piece = pieces[source_.piece];
    const bool isNegative = piece.HasSign() && name[piece.begin] == '-';
    switch (source_.from) {
      case Source::From::kWhole:
        return {piece.WholeDigits(name), "", 0, isNegative};
      case Source::From::kFraction:
        return {piece.FractionDigits(name), "", 0, false};
      case Source::From::kExponent:
        return {piece.ExponentDigits(name), "", 0, false};
      case Source::From::kDecimal: {
        const int power = SmallNumber(piece.ExponentDigits(name));
        return {piece.WholeDigits(name), piece.FractionDigits(name),
                piece.exponentSign == '-' ? -power : power, isNegative};
      }
      default: {
        const auto instant = ReadInstant(source_.time, name, pieces);
        char* const end =
            std::to_chars(std::begin(seconds_), std::end(seconds_), instant->seconds).ptr;
        return {{std::begin(seconds_), end}, instant->fraction, 0, false};
      }
    }
  }

 private:
  const NameGroup& group_;
  const Source& source_;
  char seconds_[24] = {};
};

// Replaces values that are too long for keys by their ranks.
void RankValues(Column& column, const std::vector<std::uint32_t>& rows, NumberReader& reader) {
  for (const std::uint32_t row : rows) {
    column.ranked.emplace_back(reader.Read(row));
  }
  std::vector<std::uint32_t> order(rows.size());
  std::iota(order.begin(), order.end(), 0);
  const auto& values = column.ranked;
  std::sort(order.begin(), order.end(),
            [&](std::uint32_t left, std::uint32_t right) { return values[left] < values[right]; });
  column.keys.assign(rows.size(), 0);
  for (std::size_t index = 1; index < order.size(); ++index) {
    column.keys[order[index]] =
        column.keys[order[index - 1]] + (values[order[index]] == values[order[index - 1]] ? 0 : 1);
  }
}

}  // namespace

NumberKind Source::Kind() const {
  return from == From::kTime      ? time.Kind()
         : from == From::kDecimal ? NumberKind::kDecimal
                                  : NumberKind::kWhole;
}

Span SpanOf(const Source& source, std::span<const Piece> pieces) {
  const Piece& piece = pieces[source.piece];
  const std::size_t wholeEnd = std::size_t{piece.at} + piece.whole;
  switch (source.from) {
    case Source::From::kWhole:
      return {piece.begin, wholeEnd};
    case Source::From::kFraction:
      return {wholeEnd + 1, wholeEnd + 1 + piece.fraction};
    case Source::From::kExponent:
      return {piece.end - piece.exponent, piece.end};
    case Source::From::kDecimal:
      return {piece.begin, piece.end};
    default:
      return {piece.begin, pieces[source.piece + source.time.Count() - 1].end};
  }
}

Column ReadColumn(const NameGroup& group, const std::vector<std::uint32_t>& rows,
                  const Source& source) {
  NumberReader reader(group, source);
  Column column;
  column.kind = source.Kind();
  if (column.kind != NumberKind::kWhole) {
    for (const std::uint32_t row : rows) {
      column.places = std::max(column.places, reader.Read(row).Places());
    }
  }
  column.keys.reserve(rows.size());
  for (const std::uint32_t row : rows) {
    const std::optional<std::int64_t> key = reader.Read(row).Scaled(column.places);
    if (!key) {
      RankValues(column, rows, reader);
      break;
    }
    column.keys.push_back(*key);
  }
  return column;
}

}  // namespace animate
