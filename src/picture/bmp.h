// Files of the type BMP.
#pragma once

#include <optional>

#include "film/size.h"
#include "picture/bytes.h"

namespace animate {

// The size of the picture; nothing when the file ends before the last row of pixels does.
std::optional<Size> ReadBmp(Bytes& bytes);

}  // namespace animate
