#include "animate/option_values.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {
namespace {

bool IsWhole(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

bool IsDecimal(const std::string& text) {
  const std::size_t point = std::min(text.find('.'), text.size());
  return IsWhole(text.substr(0, point)) &&
         (point == text.size() || IsWhole(text.substr(point + 1)));
}

// A whole number of up to nine digits; 0 for other texts.
std::size_t SmallNumberIn(const std::string& text) {
  constexpr std::size_t kMostDigits = 9;
  return IsWhole(text) && text.size() <= kMostDigits ? std::strtoull(text.c_str(), nullptr, 10) : 0;
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
    RefuseUse("--rate: " + Quoted(text) +
              " is not a number above 0 up to 1000, like 25, 2.5 or 30000/1001");
  }
  return {text, rate};
}

Size ReadSize(const std::string& text) {
  constexpr std::size_t kLargestSide = 16384;
  const std::size_t mark = std::min(text.find_first_of("xX"), text.size());
  const std::string width = text.substr(0, mark);
  const std::string height = mark == text.size() ? "" : text.substr(mark + 1);
  const auto isSide = [&](const std::string& side) {
    return side.empty() || (SmallNumberIn(side) >= 1 && SmallNumberIn(side) <= kLargestSide);
  };
  if (mark == text.size() || text.size() == 1 || !isSide(width) || !isSide(height)) {
    RefuseUse("--size: " + Quoted(text) +
              " is not WIDTHxHEIGHT with each from 1 to 16384, like 640x480, 640x or x480");
  }
  return {static_cast<int>(SmallNumberIn(width)), static_cast<int>(SmallNumberIn(height))};
}

Colour ReadColour(const std::string& text) {
  static const std::map<std::string, std::uint32_t> kNames = {
      {"black", 0x000000}, {"silver", 0xC0C0C0},  {"gray", 0x808080},    {"grey", 0x808080},
      {"white", 0xFFFFFF}, {"maroon", 0x800000},  {"red", 0xFF0000},     {"purple", 0x800080},
      {"green", 0x008000}, {"lime", 0x00FF00},    {"olive", 0x808000},   {"yellow", 0xFFFF00},
      {"navy", 0x000080},  {"blue", 0x0000FF},    {"teal", 0x008080},    {"aqua", 0x00FFFF},
      {"cyan", 0x00FFFF},  {"fuchsia", 0xFF00FF}, {"magenta", 0xFF00FF}, {"orange", 0xFFA500}};
  const auto named = kNames.find(LowerCase(text));
  const bool isNumber = text.size() == 7 && text[0] == '#' &&
                        text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
  if (named == kNames.end() && !isNumber) {
    RefuseUse("--background: " + Quoted(text) + " is no colour like white, navy or #ff8800");
  }
  const auto number = isNumber
                          ? static_cast<std::uint32_t>(std::strtoul(text.c_str() + 1, nullptr, 16))
                          : named->second;
  return {static_cast<std::uint8_t>(number >> 16), static_cast<std::uint8_t>(number >> 8 & 0xFF),
          static_cast<std::uint8_t>(number & 0xFF)};
}

Numbers ReadNumbers(const std::string& text) {
  if (text != "decimal" && text != "whole") {
    RefuseUse("--numbers: " + Quoted(text) + " is neither decimal nor whole");
  }
  return text == "decimal" ? Numbers::kDecimal : Numbers::kWhole;
}

int ReadQuality(const std::string& text) {
  const std::size_t quality = SmallNumberIn(text);
  if (quality < 1 || quality > 100) {
    RefuseUse("--quality: " + Quoted(text) + " is not a whole number from 1 to 100");
  }
  return static_cast<int>(quality);
}

int ReadThreads(const std::string& text) {
  constexpr std::size_t kMost = 1024;
  const std::size_t threads = SmallNumberIn(text);
  if (threads < 1 || threads > kMost) {
    RefuseUse("--threads: " + Quoted(text) + " is not a whole number from 1 to 1024");
  }
  return static_cast<int>(threads);
}

std::uint64_t ReadBytes(const std::string& text) {
  static const std::map<std::string, double> kUnits = {{"kb", 1e3}, {"mb", 1e6}, {"gb", 1e9}};
  const std::size_t end = std::min(text.find_first_not_of("0123456789."), text.size());
  const auto unit =
      kUnits.find(LowerCase(text.substr(std::min(text.find_first_not_of(' ', end), text.size()))));
  const std::string number = text.substr(0, end);
  const double bytes = unit != kUnits.end() && IsDecimal(number)
                           ? std::strtod(number.c_str(), nullptr) * unit->second
                           : 0;
  constexpr double kMost = 1e15;
  if (!(bytes >= 1 && bytes <= kMost)) {
    RefuseUse("--max-size: " + Quoted(text) + " is not a size like 800kB, 10MB or 1.5GB");
  }
  return static_cast<std::uint64_t>(bytes);
}

std::optional<Levels> ReadLevels(const std::string& text) {
  if (text == "auto") {
    return std::nullopt;
  }
  const std::size_t mark = std::min(text.find('-'), text.size());
  const std::string low = text.substr(0, mark);
  const std::string high = mark == text.size() ? "" : text.substr(mark + 1);
  constexpr std::size_t kMost = 0xFFFF;
  if (!IsWhole(low) || SmallNumberIn(high) <= SmallNumberIn(low) || SmallNumberIn(high) > kMost) {
    RefuseUse("--levels: " + Quoted(text) +
              " is neither auto nor LOW-HIGH with whole numbers up to 65535, like 0-4095");
  }
  return Levels{static_cast<std::uint32_t>(SmallNumberIn(low)),
                static_cast<std::uint32_t>(SmallNumberIn(high))};
}

std::size_t ReadEvery(const std::string& text) {
  const std::size_t every = SmallNumberIn(text);
  if (every == 0) {
    RefuseUse("--every: " + Quoted(text) + " is not a whole number from 1 on");
  }
  return every;
}

BadFrames ReadBadFrames(const std::string& text) {
  if (text != "refuse" && text != "skip" && text != "hold") {
    RefuseUse("--bad: " + Quoted(text) + " is none of refuse, skip and hold");
  }
  return text == "skip" ? BadFrames::kSkip : text == "hold" ? BadFrames::kHold : BadFrames::kRefuse;
}

Decimal ReadSpeed(const std::string& text) {
  std::string_view rest = text;
  const std::optional<Decimal> speed = TakeDecimal(rest);
  if (!speed || !rest.empty() || !(Decimal() < *speed)) {
    RefuseUse("--speed: " + Quoted(text) +
              " is not a number of units a second above 0, like 10, 0.5 or 1e-3");
  }
  return *speed;
}

double ReadSeconds(const std::string& text) {
  if (!IsDecimal(text)) {
    RefuseUse("--hold: " + Quoted(text) + " is not a number of seconds, like 2 or 0.5");
  }
  return std::strtod(text.c_str(), nullptr);
}

std::filesystem::path ReadPath(const std::string& text, const char* option) {
  if (text.empty()) {
    RefuseUse(std::string(option) + " is empty");
  }
  return platform::FullPath(platform::PathFromText(text));
}

}  // namespace animate
