#include "text/number.h"

#include <algorithm>
#include <cmath>
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
  const double value = std::strtod(text.GetString(), nullptr);
  if (std::abs(value) > std::numeric_limits<float>::max()) {
    return std::copysign(std::numeric_limits<float>::infinity(),
                         static_cast<float>(value < 0 ? -1 : 1));
  }
  return static_cast<float>(value);
}

CString IntToString(int number) {
  return std::to_string(number);
}
