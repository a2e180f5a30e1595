// What the file of a picture says of itself, without decoding it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "animate/options.h"
#include "platform/file_system.h"

namespace animate {

struct Picture {
  Size size;
  // Of the file that was looked at.
  platform::FileStatus status;
};

// Looks at the picture in the image file at `path`. Throws a Failure that names the file when it
// cannot be read, is empty, is no picture or one of another type than its name says, or is cut:
// converters take some cut files for whole ones.
Picture LookAtPicture(const std::filesystem::path& path);

// What a GIF holds as an animation.
struct GifContent {
  Size size;
  std::size_t images = 0;
  // How long all images stand together, in hundredths of a second.
  std::uint64_t delay = 0;
};

// Reads the GIF at `path`; nothing when it is no whole GIF.
std::optional<GifContent> ReadGifContent(const std::filesystem::path& path);

}  // namespace animate
