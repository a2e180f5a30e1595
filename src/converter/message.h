// The converter's messages, which it marks with their level.
#pragma once

#include <string>

namespace animate {

// What a line says that is marked as an error; empty for lines of other levels and of other
// programs, like a loader or a script around the converter.
std::string ErrorIn(const std::string& line);

}  // namespace animate
