#include "animate/option_values.h"

#include <algorithm>
#include <cstdlib>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/paths.h"

namespace animate {
namespace {

[[noreturn]] void WrongUse(const std::string& what) {
  throw Failure(what, ExitStatus::kWrongUse);
}

bool IsWhole(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

bool IsDecimal(const std::string& text) {
  const std::size_t point = std::min(text.find('.'), text.size());
  return IsWhole(text.substr(0, point)) &&
         (point == text.size() || IsWhole(text.substr(point + 1)));
}

// A decimal number, or a fraction of whole ones; 0 for other texts.
double RateValue(const std::string& text) {
  const std::size_t slash = text.find('/');
  const std::string numerator = text.substr(0, slash);
  if (slash == std::string::npos) {
    return IsDecimal(text) ? std::strtod(text.c_str(), nullptr) : 0;
  }
  // What the converter takes.
  constexpr std::size_t kMostDigits = 9;
  const std::string denominator = text.substr(slash + 1);
  const bool isFraction = IsWhole(numerator) && IsWhole(denominator) &&
                          std::max(numerator.size(), denominator.size()) <= kMostDigits;
  return isFraction
             ? std::strtod(numerator.c_str(), nullptr) / std::strtod(denominator.c_str(), nullptr)
             : 0;
}

}  // namespace

Rate ReadRate(const std::string& text) {
  constexpr double kHighestRate = 1000;
  const double rate = RateValue(text);
  if (!(rate > 0 && rate <= kHighestRate)) {
    WrongUse("--rate: " + Quoted(text) +
             " is not a number above 0 up to 1000, like 25, 2.5 or 30000/1001");
  }
  return {text, rate};
}

Size ReadSize(const std::string& text) {
  constexpr int kLargestSide = 16384;
  const auto read = [](const std::string& side) {
    return IsWhole(side) && side.size() <= 5 ? std::atoi(side.c_str()) : 0;
  };
  const std::size_t mark = std::min(text.find_first_of("xX"), text.size());
  const Size size = {read(text.substr(0, mark)),
                     mark == text.size() ? 0 : read(text.substr(mark + 1))};
  if (std::min(size.width, size.height) < 1 || std::max(size.width, size.height) > kLargestSide) {
    WrongUse("--size: " + Quoted(text) +
             " is not WIDTHxHEIGHT with each from 1 to 16384, like 640x480");
  }
  return size;
}

Numbers ReadNumbers(const std::string& text) {
  if (text != "decimal" && text != "whole") {
    WrongUse("--numbers: " + Quoted(text) + " is neither decimal nor whole");
  }
  return text == "decimal" ? Numbers::kDecimal : Numbers::kWhole;
}

std::size_t ReadEvery(const std::string& text) {
  constexpr std::size_t kMostDigits = 9;
  const bool isNumber = IsWhole(text) && text.size() <= kMostDigits;
  const std::size_t every = isNumber ? std::strtoull(text.c_str(), nullptr, 10) : 0;
  if (every == 0) {
    WrongUse("--every: " + Quoted(text) + " is not a whole number from 1 on");
  }
  return every;
}

BadFrames ReadBadFrames(const std::string& text) {
  if (text != "refuse" && text != "skip" && text != "hold") {
    WrongUse("--bad: " + Quoted(text) + " is none of refuse, skip and hold");
  }
  return text == "skip" ? BadFrames::kSkip : text == "hold" ? BadFrames::kHold : BadFrames::kRefuse;
}

Decimal ReadSpeed(const std::string& text) {
  std::string_view rest = text;
  const std::optional<Decimal> speed = TakeDecimal(rest);
  if (!speed || !rest.empty() || !(Decimal() < *speed)) {
    WrongUse("--speed: " + Quoted(text) +
             " is not a number of units a second above 0, like 10, 0.5 or 1e-3");
  }
  return *speed;
}

double ReadSeconds(const std::string& text) {
  if (!IsDecimal(text)) {
    WrongUse("--hold: " + Quoted(text) + " is not a number of seconds, like 2 or 0.5");
  }
  return std::strtod(text.c_str(), nullptr);
}

std::filesystem::path ReadPath(const std::string& text, const char* option) {
  if (text.empty()) {
    WrongUse(std::string(option) + " is empty");
  }
  return platform::FullPath(platform::PathFromText(text));
}

}  // namespace animate
