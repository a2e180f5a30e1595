// The types of images that are frames, told by their names.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace animate {

// The type that the extension of a name says, in any case: gif, bmp, jpg, tif, png, tga, webp, or
// pnm for each of the kinds of that family. Empty when it is not one of an image that can be a
// frame.
std::string ImageType(std::string_view name);
std::string ImageType(const std::filesystem::path& name);

}  // namespace animate
