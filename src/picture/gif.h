// Files of the type GIF.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// What the file says, the size of the screen, 0x0 for a damaged file; nothing when it ends before
// its last block does. Only the trailer may be missing.
std::optional<PictureFacts> ReadGif(Bytes& bytes);

}  // namespace animate
