// Reading the values of options. All throw a Failure of wrong use that says what is expected.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "film/colour.h"
#include "film/levels.h"
#include "film/rate.h"
#include "film/size.h"
#include "sequence/decimal.h"
#include "sequence/reading.h"

namespace animate {

// What happens to frames that cannot be shown: the run fails, they are left out, or the frame
// before stays.
enum class BadFrames { kRefuse, kSkip, kHold };

// "25", "2.5" or "30000/1001".
Rate ReadRate(const std::string& text);

// "640x480", "640x" or "x480"; a side that is left out is 0.
Size ReadSize(const std::string& text);

Numbers ReadNumbers(const std::string& text);

// "#rrggbb", or one of the sixteen names that the web began with, orange or grey.
Colour ReadColour(const std::string& text);

// From 1 to 100.
int ReadQuality(const std::string& text);

// From 1 to 1024.
int ReadThreads(const std::string& text);

// "10MB", "1.5 GB" or "800kB", in thousands.
std::uint64_t ReadBytes(const std::string& text);

// "LOW-HIGH", or nothing for "auto".
std::optional<Levels> ReadLevels(const std::string& text);

std::size_t ReadEvery(const std::string& text);

BadFrames ReadBadFrames(const std::string& text);

// Units of the counter in a second: a number above 0 with any fraction and exponent.
Decimal ReadSpeed(const std::string& text);

// A number of seconds.
double ReadSeconds(const std::string& text);

// The one path that the value of `option` names, from the root on.
std::filesystem::path ReadPath(const std::string& text, const char* option);

}  // namespace animate
