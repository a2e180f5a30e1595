#include "sequence/reading.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "sequence/evidence.h"
#include "sequence/gaps.h"

namespace animate {
namespace {

// What is chosen where the names leave a choice.
struct Choice {
  bool areDecimals = true;
  DateForm doubtfulDates = DateForm::kNone;
};

class GroupReader {
 public:
  GroupReader(const NameGroup& group, Numbers numbers) : group_(group), times_(FindTimes(group)) {
    for (std::size_t piece = 0; piece < group.width; ++piece) {
      Evidence evidence = WeighPiece(group, piece);
      if (evidence != Evidence::kNoMark && numbers != Numbers::kAuto) {
        evidence = numbers == Numbers::kDecimal ? Evidence::kDecimal : Evidence::kWhole;
      }
      evidence_.push_back(evidence);
    }
    for (const TimeForm& time : times_) {
      hasDoubtfulDate_ = hasDoubtfulDate_ || (time.isDoubtful && numbers != Numbers::kWhole);
      std::fill_n(evidence_.begin() + static_cast<std::ptrdiff_t>(time.First()), time.Count(),
                  Evidence::kNoMark);
    }
  }

  bool HasDoubtfulMark() const {
    return std::find(evidence_.begin(), evidence_.end(), Evidence::kNone) != evidence_.end();
  }
  bool HasDoubtfulDate() const { return hasDoubtfulDate_; }

  Reading Read(const std::string& label, Choice choice) const {
    Reading reading = {label, {}};
    for (auto& rows : RowsByMarks(choice)) {
      reading.sequences.push_back(ReadRows(std::move(rows), choice));
    }
    return reading;
  }

 private:
  bool IsWhole(std::size_t piece, Choice choice) const {
    return evidence_[piece] == Evidence::kWhole ||
           (evidence_[piece] == Evidence::kNone && !choice.areDecimals);
  }

  // Counters have to be joined by the same marks to belong together.
  std::vector<std::vector<std::uint32_t>> RowsByMarks(Choice choice) const {
    std::vector<std::size_t> pieces;
    for (std::size_t piece = 0; piece < group_.width; ++piece) {
      if (IsWhole(piece, choice)) {
        pieces.push_back(piece);
      }
    }
    if (pieces.empty()) {
      std::vector<std::uint32_t> all(group_.names.size());
      std::iota(all.begin(), all.end(), 0);
      return {all};
    }
    std::map<std::string, std::vector<std::uint32_t>> rows;
    std::string marks;
    for (std::uint32_t row = 0; row < group_.names.size(); ++row) {
      marks.clear();
      for (const std::size_t piece : pieces) {
        marks += {group_.PiecesOf(row)[piece].mark, group_.PiecesOf(row)[piece].exponentSign};
      }
      rows[marks].push_back(row);
    }
    std::vector<std::vector<std::uint32_t>> all;
    all.reserve(rows.size());
    for (auto& [key, some] : rows) {
      all.push_back(std::move(some));
    }
    return all;
  }

  // A doubtful date that is read as none is three numbers beside its clock.
  static void AddTime(std::vector<Source>& sources, TimeForm form, DateForm doubtfulDates) {
    if (!form.isDoubtful || doubtfulDates != DateForm::kNone) {
      form.date = form.isDoubtful ? doubtfulDates : form.date;
      sources.push_back({Source::From::kTime, form.First(), form});
      return;
    }
    const bool isClockFirst = form.First() != form.datePiece;
    TimeForm clock = form;
    clock.date = DateForm::kNone;
    for (std::size_t index = 0; index < 3; ++index) {
      sources.push_back({Source::From::kWhole, form.datePiece + index, {}});
    }
    if (clock.clock != ClockForm::kNone) {
      sources.insert(isClockFirst ? sources.end() - 3 : sources.end(),
                     {Source::From::kTime, clock.clockPiece, clock});
    }
  }

  std::vector<Source> SourcesOf(const std::vector<std::uint32_t>& rows, Choice choice) const {
    std::vector<Source> sources;
    auto time = times_.begin();
    for (std::size_t piece = 0; piece < group_.width;) {
      if (time != times_.end() && piece == time->First()) {
        AddTime(sources, *time, choice.doubtfulDates);
        piece += time->Count();
        ++time;
        continue;
      }
      const Piece& sample = group_.PiecesOf(rows.front())[piece];
      if (evidence_[piece] == Evidence::kNoMark || IsWhole(piece, choice)) {
        sources.push_back({Source::From::kWhole, piece, {}});
        if (sample.fraction != 0) {
          sources.push_back({Source::From::kFraction, piece, {}});
        }
        if (sample.exponent != 0) {
          sources.push_back({Source::From::kExponent, piece, {}});
        }
      } else {
        sources.push_back({Source::From::kDecimal, piece, {}});
      }
      ++piece;
    }
    return sources;
  }

  ReadNames ReadRows(std::vector<std::uint32_t> rows, Choice choice) const {
    ReadNames read;
    read.rows = std::move(rows);
    read.sources = SourcesOf(read.rows, choice);
    for (const Source& source : read.sources) {
      read.columns.push_back(ReadColumn(group_, read.rows, source));
    }
    std::vector<std::string_view> names;
    names.reserve(read.rows.size());
    for (const std::uint32_t row : read.rows) {
      names.emplace_back(group_.TextOf(row));
    }
    read.arrangement = Arrange(read.columns, names);
    return read;
  }

  const NameGroup& group_;
  std::vector<TimeForm> times_;
  std::vector<Evidence> evidence_;
  bool hasDoubtfulDate_ = false;
};

// Whether the counter has a step by which at most as many numbers are missing as are there.
bool HasFullStep(const ReadNames& read) {
  const Arrangement& made = read.arrangement;
  const Column& counter = read.columns[made.counter];
  std::vector<std::uint64_t> differences;
  for (std::size_t index = 1; index < made.order.size(); ++index) {
    const std::int64_t before = counter.keys[made.order[index - 1]];
    const std::int64_t key = counter.keys[made.order[index]];
    if (made.stretch[index] == made.stretch[index - 1] && before < key) {
      differences.push_back(static_cast<std::uint64_t>(key) - static_cast<std::uint64_t>(before));
    }
  }
  const Step step = FindStep(counter.kind, differences);
  return !counter.HasRanks() && step.size != 0 && step.missing <= differences.size();
}

bool GiveOneOrder(const Reading& left, const Reading& right) {
  return left.sequences.size() == 1 && right.sequences.size() == 1 &&
         left.sequences[0].arrangement.byNumbers == right.sequences[0].arrangement.byNumbers;
}

bool GiveOneFilm(const Reading& left, const Reading& right) {
  return GiveOneOrder(left, right) &&
         left.sequences[0].arrangement.part == right.sequences[0].arrangement.part;
}

// Whether no one has to be asked if the names are decimals.
bool AreSurelyDecimals(const Reading& decimals, const Reading& counters) {
  return GiveOneFilm(decimals, counters) ||
         (GiveOneOrder(decimals, counters) && decimals.sequences[0].arrangement.parts == 1 &&
          HasFullStep(decimals.sequences[0]));
}

}  // namespace

Readings ReadGroup(const NameGroup& group, Numbers numbers) {
  const GroupReader reader(group, numbers);
  Readings readings;
  std::vector<Reading>& ways = readings.ways;
  ways.push_back(reader.Read("as decimals", {}));
  if (reader.HasDoubtfulMark()) {
    Reading counters = reader.Read("as counters", {.areDecimals = false});
    if (!AreSurelyDecimals(ways[0], counters)) {
      ways.push_back(std::move(counters));
      readings.options = "--numbers decimal or --numbers whole";
      return readings;
    }
  }
  if (reader.HasDoubtfulDate()) {
    ways[0].label = "as counters";
    for (const auto& [form, label] : {std::pair(DateForm::kDayMonthYear, "as day-month-year"),
                                      std::pair(DateForm::kMonthDayYear, "as month-day-year")}) {
      Reading dates = reader.Read(label, {.doubtfulDates = form});
      if (std::none_of(ways.begin(), ways.end(),
                       [&](const Reading& way) { return GiveOneFilm(way, dates); })) {
        ways.push_back(std::move(dates));
      }
    }
    readings.options = "--numbers whole for the counters, or the order in --from-list";
  }
  return readings;
}

}  // namespace animate
