// Days and times of day, and the points in time that they make.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace animate {

constexpr std::int64_t kSecondsOfDay = 86400;

// The value of up to nine digits.
int SmallNumber(std::string_view digits);

// Days since the first of 1900; nothing for days that the calendar does not have and for years that
// no frame is of: before 1900 and after 2099.
std::optional<std::int64_t> DayOf(int year, int month, int day);

// The day that eight digits name: 20240305.
std::optional<std::int64_t> DayOfDigits(std::string_view digits);

// Seconds after midnight; nothing for times that no clock of 24 hours shows.
std::optional<std::int64_t> TimeOfDay(int hour, int minute, int second);

// What a number of a name counts.
enum class NumberKind { kWhole, kDecimal, kDay, kTimeOfDay, kMoment };

constexpr bool IsTime(NumberKind kind) {
  return kind != NumberKind::kWhole && kind != NumberKind::kDecimal;
}

}  // namespace animate
