// Files of the type JPEG.
#pragma once

#include <optional>

#include "film/size.h"
#include "picture/bytes.h"

namespace animate {

// The size of the picture; nothing when the file ends before the picture does.
std::optional<Size> ReadJpeg(Bytes& bytes);

}  // namespace animate
