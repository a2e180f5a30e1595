#include "sequence/decimal.h"

#include <algorithm>
#include <limits>

#include "sequence/ascii.h"
#include "sequence/calendar.h"

namespace animate {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();

// Puts `digit` behind those of `value`; false when there is no room for it.
bool Append(std::int64_t& value, char digit) {
  const std::int64_t unit = digit - '0';
  if (value > (kLargest - unit) / 10) {
    return false;
  }
  value = value * 10 + unit;
  return true;
}

std::string_view TakeDigits(std::string_view& text) {
  const std::string_view digits =
      text.substr(0, std::min(text.find_first_not_of("0123456789"), text.size()));
  text.remove_prefix(digits.size());
  return digits;
}

}  // namespace

int NumberText::Places() const {
  return std::max(0, static_cast<int>(fraction.size()) - exponent);
}

std::optional<std::int64_t> NumberText::Scaled(int places) const {
  const int zeros = places + exponent - static_cast<int>(fraction.size());
  const auto appendAll = [](std::int64_t& value, std::string_view digits) {
    return std::all_of(digits.begin(), digits.end(), [&](char c) { return Append(value, c); });
  };
  std::int64_t value = 0;
  if (zeros < 0 || !appendAll(value, whole) || !appendAll(value, fraction)) {
    return std::nullopt;
  }
  for (int index = 0; index < zeros && value != 0; ++index) {
    if (!Append(value, '0')) {
      return std::nullopt;
    }
  }
  return isNegative ? -value : value;
}

Decimal::Decimal(const NumberText& text) : digits_(text.whole) {
  digits_ += text.fraction;
  const std::size_t zeros = std::min(digits_.find_first_not_of('0'), digits_.size());
  digits_.erase(0, zeros);
  digits_.erase(digits_.find_last_not_of('0') + 1);
  if (!digits_.empty()) {
    point_ = static_cast<int>(text.whole.size()) - static_cast<int>(zeros) + text.exponent;
    isNegative_ = text.isNegative;
  }
}

Decimal::Decimal(std::int64_t scaled, int places) {
  const std::string digits = std::to_string(scaled);
  *this = Decimal({std::string_view(digits).substr(scaled < 0 ? 1 : 0), "", -places, scaled < 0});
}

int Decimal::Places() const {
  return std::max(0, static_cast<int>(digits_.size()) - point_);
}

std::optional<std::int64_t> Decimal::Scaled(int places) const {
  return NumberText{"", digits_, point_, isNegative_}.Scaled(places);
}

std::string Decimal::Text() const {
  const auto size = static_cast<int>(digits_.size());
  std::string text = isNegative_ ? "-" : "";
  if (point_ <= 0) {
    text += "0";
  } else {
    text += digits_.substr(0, static_cast<std::size_t>(point_));
    text.append(static_cast<std::size_t>(std::max(0, point_ - size)), '0');
  }
  if (point_ < size) {
    text += "." + std::string(static_cast<std::size_t>(std::max(0, -point_)), '0') +
            digits_.substr(static_cast<std::size_t>(std::max(0, point_)));
  }
  return text;
}

std::strong_ordering Decimal::operator<=>(const Decimal& other) const {
  const auto sign = [](const Decimal& number) {
    return number.digits_.empty() ? 0 : number.isNegative_ ? -1 : 1;
  };
  if (sign(*this) != sign(other) || sign(*this) == 0) {
    return sign(*this) <=> sign(other);
  }
  const Decimal& low = isNegative_ ? other : *this;
  const Decimal& high = isNegative_ ? *this : other;
  return low.point_ != high.point_ ? low.point_ <=> high.point_ : low.digits_ <=> high.digits_;
}

std::optional<Decimal> TakeDecimal(std::string_view& text) {
  std::string_view rest = text;
  NumberText number;
  number.isNegative = rest.starts_with('-');
  TakeCharacter(rest, "+-");
  number.whole = TakeDigits(rest);
  if (std::string_view after = rest; TakeCharacter(after, ".,")) {
    number.fraction = TakeDigits(after);
    rest = number.fraction.empty() ? rest : after;
  }
  if (std::string_view after = rest; TakeCharacter(after, "e")) {
    const bool isNegative = after.starts_with('-');
    TakeCharacter(after, "+-");
    const std::string_view power = TakeDigits(after);
    if (!power.empty() && power.size() <= 3) {
      number.exponent = isNegative ? -SmallNumber(power) : SmallNumber(power);
      rest = after;
    }
  }
  if (number.whole.empty()) {
    return std::nullopt;
  }
  text = rest;
  return Decimal(number);
}

}  // namespace animate
