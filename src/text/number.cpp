#include "text/number.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string>

int ReadInteger(const CString& text) {
  // The conversion saturates at its own limits, so a wide type leaves only the clamp to do.
  const long long value = std::strtoll(text.GetString(), nullptr, 10);
  return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(),
                                                std::numeric_limits<int>::max()));
}

float ReadFloat(const CString& text) {
  // The conversion would also read words such as "inf" and hexadecimal numbers.
  const std::string& whole = text;
  const std::size_t start = std::min(whole.find_first_not_of(" \t\n\v\f\r"), whole.size());
  const std::size_t end = whole.find_first_not_of("+-.0123456789eE", start);
  const double value = std::strtod(whole.substr(start, end - start).c_str(), nullptr);
  if (std::abs(value) > std::numeric_limits<float>::max()) {
    return static_cast<float>(std::copysign(std::numeric_limits<double>::infinity(), value));
  }
  return static_cast<float>(value);
}

CString IntToString(int number) {
  return std::to_string(number);
}

int RaisedToEven(int number) {
  return number % 2 != 0 && number < std::numeric_limits<int>::max() ? number + 1 : number;
}
