// Where the converter is.
#pragma once

#include <filesystem>

namespace animate {

// Chooses the program at `wanted`, or else, when that is empty, the first that is beside this
// program, under TESSARA_DIR or in PATH and may be started. Throws a Failure when there is none.
std::filesystem::path FindConverter(const std::filesystem::path& wanted);

}  // namespace animate
