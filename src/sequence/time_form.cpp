#include "sequence/time_form.h"

#include <algorithm>

namespace animate {
namespace {

std::size_t PiecesOfDate(DateForm form) {
  switch (form) {
    case DateForm::kNone:
      return 0;
    case DateForm::kDigits:
    case DateForm::kDigitsWithClock:
      return 1;
    default:
      return 3;
  }
}

std::size_t PiecesOfClock(ClockForm form) {
  switch (form) {
    case ClockForm::kNone:
      return 0;
    case ClockForm::kTwo:
      return 2;
    case ClockForm::kThree:
      return 3;
    case ClockForm::kThreeAndFraction:
      return 4;
    default:
      return 1;
  }
}

bool IsUnsigned(const Piece& piece) {
  return piece.clock < 0 && !piece.HasSign() && piece.exponent == 0;
}

// Whether a piece is of `least` to `most` digits alone.
bool IsDigits(const Piece& piece, std::size_t least, std::size_t most) {
  return IsUnsigned(piece) && piece.mark == 0 && piece.whole >= least && piece.whole <= most;
}

// Hours, minutes and seconds in six digits, which a fraction may follow with or without a mark.
std::optional<Instant> ReadClockDigits(std::string_view digits, std::string_view fraction) {
  if (digits.size() > 6 && !fraction.empty()) {
    return std::nullopt;
  }
  const auto time = TimeOfDay(SmallNumber(digits.substr(0, 2)), SmallNumber(digits.substr(2, 2)),
                              SmallNumber(digits.substr(4, 2)));
  return time ? std::optional<Instant>({*time, digits.size() > 6 ? digits.substr(6) : fraction})
              : std::nullopt;
}

// The days since 1900 as seconds; with the clock's where the date's digits have one.
std::optional<Instant> ReadDate(DateForm form, std::string_view name, const Piece* piece) {
  const std::string_view digits = piece->WholeDigits(name);
  if (form == DateForm::kDigits || form == DateForm::kDigitsWithClock) {
    const bool hasClock = form == DateForm::kDigitsWithClock;
    const bool fits = hasClock ? IsUnsigned(*piece) && piece->whole >= 14 && piece->whole <= 23
                               : IsDigits(*piece, 8, 8);
    const auto day = fits ? DayOfDigits(digits) : std::nullopt;
    const auto clock = hasClock && day
                           ? ReadClockDigits(digits.substr(8), piece->FractionDigits(name))
                           : Instant{};
    return day && clock
               ? std::optional<Instant>({*day * kSecondsOfDay + clock->seconds, clock->fraction})
               : std::nullopt;
  }
  const std::size_t yearPiece = form == DateForm::kYearMonthDay ? 0 : 2;
  int values[3];
  for (std::size_t index = 0; index < 3; ++index) {
    const bool isYear = index == yearPiece;
    if (!IsDigits(piece[index], isYear ? 4 : 1, isYear ? 4 : 2)) {
      return std::nullopt;
    }
    values[index] = SmallNumber(piece[index].WholeDigits(name));
  }
  const auto day = form == DateForm::kYearMonthDay   ? DayOf(values[0], values[1], values[2])
                   : form == DateForm::kDayMonthYear ? DayOf(values[2], values[1], values[0])
                                                     : DayOf(values[2], values[0], values[1]);
  return day ? std::optional<Instant>({*day * kSecondsOfDay, ""}) : std::nullopt;
}

// Seconds after midnight of hours and minutes, and seconds if there are some.
std::optional<Instant> ReadClockParts(std::string_view hour, std::string_view minute,
                                      std::string_view second, std::string_view fraction) {
  // Without seconds only 09 is an hour, not 9.
  const std::size_t leastHour = second.empty() ? 2 : 1;
  if (hour.size() < leastHour || hour.size() > 2 || minute.size() != 2) {
    return std::nullopt;
  }
  const auto time = TimeOfDay(SmallNumber(hour), SmallNumber(minute), SmallNumber(second));
  return time ? std::optional<Instant>({*time, fraction}) : std::nullopt;
}

// Hours, minutes and seconds in three pieces, of which the last can have a fraction.
std::optional<Instant> ReadThree(std::string_view name, const Piece* piece, bool hasOwnFraction) {
  const bool fits = IsDigits(piece[0], 1, 2) && IsDigits(piece[1], 2, 2) && IsUnsigned(piece[2]) &&
                    piece[2].whole == 2 &&
                    (!hasOwnFraction || (piece[2].mark == 0 && IsDigits(piece[3], 3, 9)));
  return fits ? ReadClockParts(
                    piece[0].WholeDigits(name), piece[1].WholeDigits(name),
                    piece[2].WholeDigits(name),
                    hasOwnFraction ? piece[3].WholeDigits(name) : piece[2].FractionDigits(name))
              : std::nullopt;
}

// Seconds after midnight.
std::optional<Instant> ReadClock(ClockForm form, std::string_view name, const Piece* piece) {
  switch (form) {
    case ClockForm::kTwelveHours:
      return piece->clock < 0 ? std::nullopt : std::optional<Instant>({piece->clock, ""});
    case ClockForm::kDigits:
      return IsUnsigned(*piece) && piece->whole >= 6 && piece->whole <= 15
                 ? ReadClockDigits(piece->WholeDigits(name), piece->FractionDigits(name))
                 : std::nullopt;
    case ClockForm::kOneDecimal:
      return IsUnsigned(*piece)
                 ? ReadClockParts(piece->WholeDigits(name), piece->FractionDigits(name), "", "")
                 : std::nullopt;
    case ClockForm::kTwo:
      return IsDigits(piece[0], 2, 2) && IsDigits(piece[1], 2, 2)
                 ? ReadClockParts(piece[0].WholeDigits(name), piece[1].WholeDigits(name), "", "")
                 : std::nullopt;
    default:
      return ReadThree(name, piece, form == ClockForm::kThreeAndFraction);
  }
}

}  // namespace

std::size_t TimeForm::First() const {
  return date == DateForm::kNone     ? clockPiece
         : clock == ClockForm::kNone ? datePiece
                                     : std::min(datePiece, clockPiece);
}

std::size_t TimeForm::Count() const {
  return PiecesOfDate(date) + PiecesOfClock(clock);
}

NumberKind TimeForm::Kind() const {
  if (date == DateForm::kNone) {
    return NumberKind::kTimeOfDay;
  }
  return clock == ClockForm::kNone && date != DateForm::kDigitsWithClock ? NumberKind::kDay
                                                                         : NumberKind::kMoment;
}

std::optional<Instant> ReadInstant(const TimeForm& form, std::string_view name,
                                   std::span<const Piece> pieces) {
  if (form.First() + form.Count() > pieces.size()) {
    return std::nullopt;
  }
  const auto date =
      form.date == DateForm::kNone ? Instant{} : ReadDate(form.date, name, &pieces[form.datePiece]);
  if (!date || form.clock == ClockForm::kNone) {
    return date;
  }
  const auto clock = ReadClock(form.clock, name, &pieces[form.clockPiece]);
  return clock ? std::optional<Instant>({date->seconds + clock->seconds, clock->fraction})
               : std::nullopt;
}

}  // namespace animate
