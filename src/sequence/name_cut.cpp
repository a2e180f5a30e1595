#include "sequence/name_cut.h"

#include <algorithm>

#include "sequence/ascii.h"
#include "sequence/calendar.h"

namespace animate {
namespace {

// Which macOS writes before AM and PM.
constexpr std::string_view kNarrowNoBreakSpace = "\u202F";

// Larger and smaller powers of ten than the numbers of any program have.
constexpr std::size_t kMostExponentDigits = 3;

bool IsDecimalMark(std::string_view between) {
  return between == "." || between == ",";
}

bool IsDateMark(std::string_view between) {
  return between == "-" || between == "." || between == "_";
}

std::uint32_t Narrow(std::size_t place) {
  return static_cast<std::uint32_t>(place);
}

}  // namespace

void NameCutter::FindRuns() {
  runs_.clear();
  for (std::size_t at = 0; at < stemEnd_; ++at) {
    if (IsDigit(name_[at])) {
      if (runs_.empty() || runs_.back().end != at) {
        runs_.push_back({at, at});
      }
      runs_.back().end = at + 1;
    }
  }
}

// The text between a run and the next, or to the end of the stem.
std::string_view NameCutter::Between(std::size_t run) const {
  const std::size_t next = run + 1 < runs_.size() ? runs_[run + 1].begin : stemEnd_;
  return name_.substr(runs_[run].end, next - runs_[run].end);
}

bool NameCutter::IsJoinedToNext(std::size_t run) const {
  return run + 1 < runs_.size() && IsDecimalMark(Between(run));
}

bool NameCutter::IsWholeDate(std::size_t run) const {
  return runs_[run].Size() == 8 && DayOfDigits(name_.substr(runs_[run].begin, 8));
}

// How many runs are a date with the year in front, which no mark behind it makes a decimal and no
// hour joins: 1 for 20240305, 3 for 2024-03-05; 0 when there is none.
std::size_t NameCutter::DateRuns(std::size_t run) const {
  if (IsWholeDate(run)) {
    return 1;
  }
  if (run + 2 >= runs_.size() || runs_[run].Size() != 4 || runs_[run + 1].Size() > 2 ||
      runs_[run + 2].Size() > 2 || !IsDateMark(Between(run)) || Between(run) != Between(run + 1)) {
    return 0;
  }
  const auto value = [&](std::size_t index) {
    return SmallNumber(name_.substr(runs_[index].begin, runs_[index].Size()));
  };
  return DayOf(value(run), value(run + 1), value(run + 2)) ? 3 : 0;
}

// Makes a piece of `count` runs that are a time of twelve hours, which ends in AM or PM. Returns
// `count`, or 0 when they are none.
std::size_t NameCutter::ReadClock(std::size_t run, std::size_t count, Piece& piece) const {
  if (count == 1 && runs_[run].begin > 0 && IsLetter(name_[runs_[run].begin - 1])) {
    return 0;
  }
  int parts[3] = {0, 0, 0};
  for (std::size_t index = 0; index < count; ++index) {
    const Run& part = runs_[run + index];
    if (part.Size() > 2 || (index > 0 && part.Size() != 2) ||
        (index + 1 < count &&
         (Between(run + index).size() != 1 ||
          std::string_view(".:-_").find(Between(run + index)) == std::string_view::npos ||
          Between(run + index) != Between(run)))) {
      return 0;
    }
    parts[index] = SmallNumber(name_.substr(part.begin, part.Size()));
  }
  std::size_t end = runs_[run + count - 1].end;
  const std::string_view rest = name_.substr(0, stemEnd_).substr(end);
  end += rest.starts_with(' ')                   ? 1
         : rest.starts_with(kNarrowNoBreakSpace) ? kNarrowNoBreakSpace.size()
                                                 : 0;
  const std::string half = LowerCase(name_.substr(end, 2));
  const bool isWord = end + 2 > stemEnd_ || (end + 2 < stemEnd_ && IsLetter(name_[end + 2]));
  const auto time = TimeOfDay(parts[0] % 12 + (half == "pm" ? 12 : 0), parts[1], parts[2]);
  if ((half != "am" && half != "pm") || isWord || parts[0] < 1 || parts[0] > 12 || !time) {
    return 0;
  }
  piece.begin = piece.at = Narrow(runs_[run].begin);
  piece.end = Narrow(end + 2);
  piece.clock = static_cast<std::int32_t>(*time);
  return count;
}

// How many runs from `run` on are a time of twelve hours, which becomes `piece`.
std::size_t NameCutter::ClockRuns(std::size_t run, Piece& piece) const {
  for (std::size_t count = std::min<std::size_t>(3, runs_.size() - run); count > 0; --count) {
    if (ReadClock(run, count, piece) != 0) {
      return count;
    }
  }
  return 0;
}

// How many runs are joined by points and commas.
std::size_t NameCutter::ChainRuns(std::size_t run) const {
  std::size_t count = 1;
  while (IsJoinedToNext(run + count - 1)) {
    ++count;
  }
  return count;
}

// Whether a chain is made of decimals: a single one, or several with another mark between them than
// in them. Three and more numbers with one mark between all of them are no decimals.
bool NameCutter::HasDecimals(std::size_t run, std::size_t count) const {
  for (std::size_t index = 0; index + 1 < count; ++index) {
    if ((Between(run + index) == Between(run)) != (index % 2 == 0)) {
      return false;
    }
  }
  return count % 2 == 0;
}

Piece NameCutter::PieceOf(std::size_t run, bool hasFraction) const {
  Piece piece;
  piece.at = Narrow(runs_[run].begin);
  piece.whole = Narrow(runs_[run].Size());
  piece.begin = piece.at;
  const std::size_t at = runs_[run].begin;
  const auto isBefore = [&](std::size_t distance, std::string_view characters) {
    return characters.find(name_[at - distance]) != std::string_view::npos;
  };
  if (at > done_ && isBefore(1, "+-") && (at == 1 || isBefore(2, "_=([ "))) {
    --piece.begin;
  }
  if (hasFraction) {
    piece.mark = Between(run)[0];
    piece.fraction = Narrow(runs_[run + 1].Size());
  }
  piece.end = Narrow(runs_[run + (hasFraction ? 1 : 0)].end);
  return piece;
}

// Adds the exponent that follows the run, as in 1e-05 and 5e3, to its piece.
bool NameCutter::TakeExponent(std::size_t run, Piece& piece) const {
  if (run + 1 >= runs_.size() || runs_[run + 1].Size() > kMostExponentDigits) {
    return false;
  }
  const std::string_view between = Between(run);
  const bool hasSign = between.size() == 2 && (between[1] == '-' || between[1] == '+');
  if (LowerCase(between[0]) != 'e' || (between.size() != 1 && !hasSign) ||
      IsJoinedToNext(run + 1) || (!hasSign && IsLetter(name_[runs_[run + 1].end]))) {
    return false;
  }
  piece.exponentSign = hasSign ? between[1] : 'e';
  piece.exponent = Narrow(runs_[run + 1].Size());
  piece.end = Narrow(runs_[run + 1].end);
  return true;
}

void NameCutter::Take(const Piece& piece, std::vector<Piece>& pieces) {
  for (; done_ < piece.begin; ++done_) {
    pattern_ += LowerCase(name_[done_]);
  }
  pattern_.append(piece.clock < 0 ? 1 : 2, kPieceMark);
  done_ = piece.end;
  pieces.push_back(piece);
}

// Takes the numbers that are joined to the run, and returns how many runs they are.
std::size_t NameCutter::TakeNumbers(std::size_t run, std::vector<Piece>& pieces) {
  if (const std::size_t date = DateRuns(run); date != 0) {
    for (std::size_t index = run; index < run + date; ++index) {
      Piece piece = PieceOf(index, false);
      piece.begin = piece.at;
      Take(piece, pieces);
    }
    return date;
  }
  Piece clock;
  if (const std::size_t count = ClockRuns(run, clock); count != 0) {
    Take(clock, pieces);
    return count;
  }
  const std::size_t count = ChainRuns(run);
  const std::size_t stride = HasDecimals(run, count) ? 2 : 1;
  for (std::size_t index = 0; index < count; index += stride) {
    Piece piece = PieceOf(run + index, stride == 2);
    const std::size_t last = run + index + stride - 1;
    const bool isLast = index + stride == count && count <= 2;
    if (isLast && TakeExponent(last, piece)) {
      Take(piece, pieces);
      return count + 1;
    }
    Take(piece, pieces);
  }
  return count;
}

const std::string& NameCutter::Cut(std::string_view name, std::string_view extension,
                                   std::vector<Piece>& pieces) {
  name_ = name;
  stemEnd_ = name.rfind('.');
  pattern_.clear();
  done_ = 0;
  FindRuns();
  for (std::size_t run = 0; run < runs_.size();) {
    run += TakeNumbers(run, pieces);
  }
  for (; done_ < stemEnd_; ++done_) {
    pattern_ += LowerCase(name_[done_]);
  }
  pattern_ += '.';
  pattern_ += extension;
  return pattern_;
}

}  // namespace animate
