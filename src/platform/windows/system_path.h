// Paths as the system takes them without a limit of their length.
#pragma once

#include <filesystem>
#include <string>

namespace platform {

// `path` from the root on and marked as one without a limit when it is long, else as it is.
std::wstring SystemPath(const std::filesystem::path& path);

}  // namespace platform
