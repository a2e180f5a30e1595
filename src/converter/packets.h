// What the converter says of the pictures in a file.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "film/size.h"

namespace animate {

// Sums up the converter's list of a file's packets, which are the pictures, one a line.
struct Packets {
  std::size_t count = 0;
  // When the first and the last picture are shown, in ticks; the order of the packets is another.
  long long first = std::numeric_limits<long long>::max();
  long long last = std::numeric_limits<long long>::min();
  // When each is shown, and for how long the one of the last packet is, where that is known.
  std::vector<long long> times;
  long long lastDuration = 0;
  // In seconds.
  double tick = 0;
  Size size;

  // Takes the next line of the list.
  void Take(const std::string& line);
};

}  // namespace animate
