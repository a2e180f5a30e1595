// Which numbers of names are one point in time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sequence/calendar.h"
#include "sequence/name_group.h"

namespace animate {

// 20240305; 20240305115958; 2024-03-05; 05.03.2024 and 03-05-2024.
enum class DateForm {
  kNone,
  kDigits,
  kDigitsWithClock,
  kYearMonthDay,
  kDayMonthYear,
  kMonthDayYear
};

// 9.05.12 AM; 115958 and 115958123; 11-59-58; the same with a fraction of its own, 11.59.58.123;
// 11-59; 11.59 that was cut as a decimal.
enum class ClockForm { kNone, kTwelveHours, kDigits, kThree, kThreeAndFraction, kTwo, kOneDecimal };

// How pieces that follow each other are one point in time.
struct TimeForm {
  DateForm date = DateForm::kNone;
  ClockForm clock = ClockForm::kNone;
  // Where its pieces are; the first is the date's or the clock's.
  std::size_t datePiece = 0;
  std::size_t clockPiece = 0;
  // A date that may be day, month, year as well as month, day, year.
  bool isDoubtful = false;

  std::size_t First() const;
  std::size_t Count() const;
  NumberKind Kind() const;
};

// Seconds since the first of 1900, or since midnight for times without a date, and the digits of
// their fraction.
struct Instant {
  std::int64_t seconds = 0;
  std::string_view fraction;
};

// Nothing when the name does not have that form or the calendar not that day.
std::optional<Instant> ReadInstant(const TimeForm& form, std::string_view name,
                                   std::span<const Piece> pieces);

// The points in time that all names of the group have, from the front.
std::vector<TimeForm> FindTimes(const NameGroup& group);

}  // namespace animate
