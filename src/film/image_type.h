// The types of images that are frames, told by their names.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace animate {

// The extension of a name in lower case without its dot, jpeg as jpg and tiff as tif; empty when it
// is not one of an image that can be a frame.
std::string ImageType(std::string_view name);
std::string ImageType(const std::filesystem::path& name);

}  // namespace animate
