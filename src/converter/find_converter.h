// Where the converter is.
#pragma once

#include <filesystem>
#include <vector>

namespace animate {

// The programs that can be the converter, the best first: the one at `wanted` alone, or, when that
// is empty, those beside this program, under TESSARA_DIR and in PATH that may be started. Throws a
// Failure when there is none.
std::vector<std::filesystem::path> FindConverters(const std::filesystem::path& wanted);

}  // namespace animate
