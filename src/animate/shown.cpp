#include "animate/shown.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace animate {

std::string ShownSize(Size size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

std::string ShownBytes(std::uint64_t bytes) {
  static constexpr const char* kUnits[] = {"bytes", "kB", "MB", "GB", "TB"};
  auto size = static_cast<double>(bytes);
  std::size_t unit = 0;
  for (; size >= 999.5 && unit + 1 < std::size(kUnits); ++unit) {
    size /= 1000;
  }
  char text[32];
  std::snprintf(&text[0], sizeof(text), size < 9.95 && unit > 1 ? "%.1f %s" : "%.0f %s", size,
                kUnits[unit]);
  return &text[0];
}

std::string ShownDuration(double seconds) {
  const long whole = std::lround(std::min(seconds, 359999.0));
  char text[32];
  if (whole >= 3600) {
    std::snprintf(&text[0], sizeof(text), "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60,
                  whole % 60);
  } else {
    std::snprintf(&text[0], sizeof(text), "%ld:%02ld", whole / 60, whole % 60);
  }
  return &text[0];
}

}  // namespace animate
