// Exact numbers of any length: what is 0.1 in a name stays 0.1.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace animate {

// A number as it is written: sign, digits before and after the mark, power of ten.
struct NumberText {
  std::string_view whole;
  std::string_view fraction;
  int exponent = 0;
  bool isNegative = false;

  // How many digits its value has after the point, those of zeros at its end included.
  int Places() const;

  // The value in units of the given number of decimal places (250 for 2.5 and two places); nothing
  // when it is no whole number of them or has more than 63 bits.
  std::optional<std::int64_t> Scaled(int places) const;
};

class Decimal {
 public:
  // Zero.
  Decimal() = default;

  explicit Decimal(const NumberText& text);

  // `scaled` units of `places` decimal places.
  Decimal(std::int64_t scaled, int places);

  // As for NumberText; Places() without zeros at the end.
  int Places() const;
  std::optional<std::int64_t> Scaled(int places) const;

  // In plain digits with a point: "-0.00001".
  std::string Text() const;

  bool operator==(const Decimal& other) const = default;
  std::strong_ordering operator<=>(const Decimal& other) const;

 private:
  // Without zeros at either end; the value is 0.DIGITS times ten to the power of point_.
  std::string digits_;
  int point_ = 0;
  bool isNegative_ = false;
};

// Takes a number, with or without sign, fraction and exponent, from the front of a text. Returns
// nothing, and leaves the text, when there is none.
std::optional<Decimal> TakeDecimal(std::string_view& text);

}  // namespace animate
