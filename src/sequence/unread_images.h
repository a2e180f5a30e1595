// Images of types that are not read, so that no one wonders where they are.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace animate {

// "10 .exr", a text for each such type among the names of a folder.
std::vector<std::string> UnreadImages(const std::vector<std::filesystem::path>& names);

}  // namespace animate
