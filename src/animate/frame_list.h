// A list of frames in place of a folder.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace animate {

// The paths in the content of a list: one a line, with either kind of line end; empty lines are
// none. Throws a Failure when the content is no UTF-8, as some shells write it.
std::vector<std::filesystem::path> ListedPaths(std::string_view content);

// The content of the list at `path`, or of standard input when that is empty. Throws a Failure when
// it cannot be read.
std::string ReadList(const std::filesystem::path& path);

}  // namespace animate
