#include "converter/packets.h"

#include <algorithm>
#include <cstdio>

namespace animate {

void Packets::Take(const std::string& line) {
  long long numerator = 0;
  long long denominator = 0;
  long long decoded = 0;
  long long shown = 0;
  long long duration = 0;
  if (std::sscanf(line.c_str(), "#tb 0: %lld/%lld", &numerator, &denominator) == 2) {
    tick = static_cast<double>(numerator) / static_cast<double>(denominator);
  } else if (std::sscanf(line.c_str(), "#dimensions 0: %dx%d", &size.width, &size.height) != 2 &&
             std::sscanf(line.c_str(), "0, %lld, %lld, %lld", &decoded, &shown, &duration) >= 2) {
    ++count;
    times.push_back(shown);
    lastDuration = duration;
    first = std::min(first, shown);
    last = std::max(last, shown);
  }
}

}  // namespace animate
