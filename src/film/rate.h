// How fast a film plays.
#pragma once

#include <string>

namespace animate {

// In frames a second: as the user wrote it, which is how the converter gets it, and its value.
struct Rate {
  std::string text = "16";
  double value = 16;
};

}  // namespace animate
