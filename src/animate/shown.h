// Quantities as people read them.
#pragma once

#include <cstdint>
#include <string>

#include "film/size.h"

namespace animate {

// "640x480".
std::string ShownSize(Size size);

// A number of bytes, in thousands: "123 kB".
std::string ShownBytes(std::uint64_t bytes);

// A time in seconds: "1:05", "2:00:01"; a hundred hours at most.
std::string ShownDuration(double seconds);

}  // namespace animate
