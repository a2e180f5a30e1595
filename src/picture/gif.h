// Files of the type GIF.
#pragma once

#include <optional>

#include "film/size.h"
#include "picture/bytes.h"

namespace animate {

// The size of the screen, 0x0 for a damaged file; nothing when the file ends before its last block
// does. Only the trailer may be missing.
std::optional<Size> ReadGif(Bytes& bytes);

}  // namespace animate
