// Files of the type BMP.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// What the file says; nothing when it ends before the last row of pixels does.
std::optional<PictureFacts> ReadBmp(Bytes& bytes);

}  // namespace animate
