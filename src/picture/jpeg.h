// Files of the type JPEG.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// What the file says, the turn by its EXIF data; nothing when it ends before the picture does.
std::optional<PictureFacts> ReadJpeg(Bytes& bytes);

}  // namespace animate
