#include <algorithm>

#include "sequence/ascii.h"
#include "sequence/time_form.h"

namespace animate {
namespace {

// The text in front of each piece of a group.
std::vector<std::string_view> TextsInFront(const NameGroup& group) {
  const std::string_view pattern = group.pattern;
  std::vector<std::string_view> texts;
  std::size_t at = 0;
  for (const Piece& piece : group.PiecesOf(0)) {
    const std::size_t mark = pattern.find(kPieceMark, at);
    texts.push_back(pattern.substr(at, mark - at));
    at = mark + (piece.clock < 0 ? 1 : 2);
  }
  return texts;
}

bool IsOneOf(std::string_view text, std::string_view characters) {
  return text.size() == 1 && characters.find(text) != std::string_view::npos;
}

class TimeSearch {
 public:
  explicit TimeSearch(const NameGroup& group) : group_(group), texts_(TextsInFront(group)) {}

  // The point in time that begins with the piece, if there is one.
  std::optional<TimeForm> FindAt(std::size_t piece) const {
    if (auto form = FindDate({.datePiece = piece})) {
      form->clockPiece = piece + form->Count();
      return form->Kind() == NumberKind::kDay ? FindClock(*form).value_or(*form) : form;
    }
    auto form = FindClock({.clockPiece = piece});
    if (form) {
      form->datePiece = piece + form->Count();
      return FindDate(*form).value_or(*form);
    }
    return form;
  }

 private:
  bool FitsAll(const TimeForm& form) const {
    for (std::size_t row = 0; row < group_.names.size(); ++row) {
      if (!ReadInstant(form, group_.TextOf(row), group_.PiecesOf(row))) {
        return false;
      }
    }
    return true;
  }

  // The text in front of a piece of the form; empty behind the last.
  std::string_view Mark(std::size_t piece) const {
    return piece < texts_.size() ? texts_[piece] : std::string_view();
  }

  // The first of the forms that all names have.
  std::optional<TimeForm> FindDate(TimeForm form) const {
    const std::string_view mark = Mark(form.datePiece + 1);
    const bool isThree = IsOneOf(mark, "-._") && mark == Mark(form.datePiece + 2);
    std::vector<DateForm> dates = {DateForm::kDigits};
    if (form.clock == ClockForm::kNone) {
      dates.push_back(DateForm::kDigitsWithClock);
    }
    if (isThree) {
      dates.insert(dates.end(), {DateForm::kYearMonthDay, DateForm::kDayMonthYear});
    }
    if (isThree && mark != ".") {
      dates.push_back(DateForm::kMonthDayYear);
    }
    for (const DateForm date : dates) {
      form.date = date;
      if (FitsAll(form)) {
        TimeForm other = form;
        other.date = DateForm::kMonthDayYear;
        form.isDoubtful = date == DateForm::kDayMonthYear && mark != "." && FitsAll(other);
        return form;
      }
    }
    return std::nullopt;
  }

  // Adds the first of the clocks that all names have.
  std::optional<TimeForm> FindClock(TimeForm form) const {
    for (const ClockForm clock :
         {ClockForm::kTwelveHours, ClockForm::kThreeAndFraction, ClockForm::kThree, ClockForm::kTwo,
          ClockForm::kOneDecimal, ClockForm::kDigits}) {
      form.clock = clock;
      if (HasMarks(form) && FitsAll(form)) {
        return form;
      }
    }
    return std::nullopt;
  }

  // Whether the texts around the form's clock allow for one.
  bool HasMarks(const TimeForm& form) const {
    const std::size_t piece = form.clockPiece;
    const bool isAlone = form.date == DateForm::kNone;
    switch (form.clock) {
      case ClockForm::kTwelveHours:
        return true;
      case ClockForm::kThreeAndFraction:
        return !isAlone && Mark(piece + 3) == "." && Mark(piece + 1) == "." &&
               Mark(piece + 2) == ".";
      case ClockForm::kThree:
        return HasThreeMarks(piece, isAlone) && (!isAlone || HasFullHours(piece));
      case ClockForm::kTwo:
        return !isAlone && IsOneOf(Mark(piece + 1), "-:h") &&
               (piece + 2 >= group_.width || Mark(piece + 2) != Mark(piece + 1));
      case ClockForm::kOneDecimal:
        return !isAlone;
      default:
        // Six digits behind a word count something, unless the word is the T of a time.
        return !isAlone && (Mark(piece) == "t" ||
                            std::none_of(Mark(piece).begin(), Mark(piece).end(), IsLetter));
    }
  }

  // Without a date there have to be no more than the three numbers.
  bool HasThreeMarks(std::size_t piece, bool isAlone) const {
    const std::string_view mark = Mark(piece + 1);
    if (mark == "h") {
      return Mark(piece + 2) == "m";
    }
    const bool isLonger =
        (piece > 0 && Mark(piece) == mark) || (piece + 3 < group_.width && Mark(piece + 3) == mark);
    return IsOneOf(mark, isAlone ? "-.:" : "-.:_") && mark == Mark(piece + 2) &&
           !(isAlone && isLonger);
  }

  // A time that no date announces is one when it is written as clocks show it: 09, not 9.
  bool HasFullHours(std::size_t piece) const {
    for (std::size_t row = 0; row < group_.names.size(); ++row) {
      if (group_.PiecesOf(row)[piece].whole != 2) {
        return false;
      }
    }
    return true;
  }

  const NameGroup& group_;
  std::vector<std::string_view> texts_;
};

}  // namespace

std::vector<TimeForm> FindTimes(const NameGroup& group) {
  std::vector<TimeForm> times;
  const TimeSearch search(group);
  for (std::size_t piece = 0; piece < group.width;) {
    const std::optional<TimeForm> form = search.FindAt(piece);
    if (form) {
      times.push_back(*form);
    }
    piece += form ? form->Count() : 1;
  }
  return times;
}

}  // namespace animate
