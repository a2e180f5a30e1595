// Files of the type TIFF.
#pragma once

#include <optional>

#include "film/size.h"
#include "picture/bytes.h"

namespace animate {

// The size of the first picture; nothing when the file ends before its directory or its data do.
std::optional<Size> ReadTiff(Bytes& bytes);

}  // namespace animate
