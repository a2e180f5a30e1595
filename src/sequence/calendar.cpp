#include "sequence/calendar.h"

#include <chrono>

namespace animate {

int SmallNumber(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) {
    number = number * 10 + (digit - '0');
  }
  return number;
}

std::optional<std::int64_t> DayOf(int year, int month, int day) {
  using namespace std::chrono;
  const year_month_day date{std::chrono::year(year),
                            std::chrono::month(static_cast<unsigned>(month)),
                            std::chrono::day(static_cast<unsigned>(day))};
  if (year < 1900 || year > 2099 || !date.ok()) {
    return std::nullopt;
  }
  return (sys_days(date) - sys_days(1900y / January / 1)).count();
}

std::optional<std::int64_t> DayOfDigits(std::string_view digits) {
  return DayOf(SmallNumber(digits.substr(0, 4)), SmallNumber(digits.substr(4, 2)),
               SmallNumber(digits.substr(6, 2)));
}

std::optional<std::int64_t> TimeOfDay(int hour, int minute, int second) {
  if (hour > 23 || minute > 59 || second > 59) {
    return std::nullopt;
  }
  return (hour * 60 + minute) * 60 + second;
}

}  // namespace animate
