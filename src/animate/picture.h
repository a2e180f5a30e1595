// What the file of a picture says of itself, without decoding it.
#pragma once

#include <filesystem>

#include "animate/options.h"

namespace animate {

// The size of the picture in the image file at `path`. Throws a Failure that names the file when it
// cannot be read, is empty, is no picture or one of another type than its name says, or is cut:
// converters take some cut files for whole ones.
Size LookAtPicture(const std::filesystem::path& path);

}  // namespace animate
