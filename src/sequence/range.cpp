#include "sequence/range.h"

#include <algorithm>
#include <string_view>

#include "film/failure.h"
#include "sequence/ascii.h"

namespace animate {
namespace {

// FIRST-, FIRST-LAST, -LAST or one number.
bool TakeEnds(std::string_view& text, Range& range) {
  const std::string_view whole = text;
  range.first = TakeDecimal(text);
  if (range.first && TakeCharacter(text, "-")) {
    range.last = TakeDecimal(text);
    return true;
  }
  if (whole.starts_with('-')) {
    text = whole.substr(1);
    range.first.reset();
    range.last = TakeDecimal(text);
    return range.last.has_value();
  }
  range.last = range.first;
  return range.first.has_value();
}

void CheckKind(const Findings& findings) {
  if (IsTime(findings.kind)) {
    RefuseUse("the frames are numbered by dates or times, of which there are no ranges");
  }
}

}  // namespace

bool Range::Contains(const Decimal& number) const {
  if ((first && number < *first) || (last && *last < number)) {
    return false;
  }
  if (!step) {
    return true;
  }
  const int places = std::max({number.Places(), first->Places(), step->Places()});
  const auto value = number.Scaled(places);
  const auto start = first->Scaled(places);
  const auto unit = step->Scaled(places);
  return value && start && unit &&
         (static_cast<std::uint64_t>(*value) - static_cast<std::uint64_t>(*start)) %
                 static_cast<std::uint64_t>(*unit) ==
             0;
}

Range ReadRange(const std::string& text) {
  Range range;
  std::string_view rest = text;
  bool isRange = TakeEnds(rest, range);
  if (isRange && TakeCharacter(rest, "x")) {
    range.step = TakeDecimal(rest);
    isRange = range.first && range.step && Decimal() < *range.step;
  }
  if (!isRange || !rest.empty() || (range.first && range.last && *range.last < *range.first)) {
    RefuseUse("\"" + text +
              "\" is no range of numbers as 100-500, 100-500x5, 100-, -500, -10-10 or 0.5-2");
  }
  return range;
}

void KeepRange(Findings& findings, const Range& range) {
  CheckKind(findings);
  std::erase_if(findings.frames,
                [&](const FoundFrame& frame) { return !range.Contains(frame.number); });
  FindGaps(findings);
}

std::vector<MissingNumbers> FindMissing(const Findings& findings, const Range& range) {
  CheckKind(findings);
  const std::optional<Decimal> step = range.step ? range.step : findings.step;
  if (findings.frames.empty()) {
    throw Failure("there are no frames");
  }
  if (!step) {
    RefuseUse("the frames have no step; give one as in 100-500x5");
  }
  std::vector<Decimal> numbers;
  for (const FoundFrame& frame : findings.frames) {
    numbers.push_back(frame.number);
  }
  std::sort(numbers.begin(), numbers.end());
  const Range expected = {range.first ? range.first : numbers.front(),
                          range.last ? range.last : numbers.back(), step};
  int places = std::max({expected.first->Places(), expected.last->Places(), step->Places()});
  const auto first = expected.first->Scaled(places);
  const auto last = expected.last->Scaled(places);
  const auto unit = step->Scaled(places);
  if (!first || !last || !unit || *last > INT64_MAX - *unit) {
    RefuseUse("the numbers of the range are too long");
  }
  std::vector<MissingNumbers> missing;
  std::int64_t next = *first;
  const auto skipTo = [&](std::int64_t number) {
    if (next < number) {
      const std::uint64_t count =
          (static_cast<std::uint64_t>(number) - static_cast<std::uint64_t>(next) - 1) /
              static_cast<std::uint64_t>(*unit) +
          1;
      const auto end = static_cast<std::int64_t>(static_cast<std::uint64_t>(next) +
                                                 (count - 1) * static_cast<std::uint64_t>(*unit));
      missing.push_back({count, Decimal(next, places).Text(), Decimal(end, places).Text()});
    }
  };
  for (const Decimal& number : numbers) {
    if (expected.Contains(number)) {
      const std::int64_t value = *number.Scaled(places);
      skipTo(value);
      next = std::max(next, value + *unit);
    }
  }
  if (next <= *last) {
    skipTo(*last + 1);
  }
  return missing;
}

}  // namespace animate
