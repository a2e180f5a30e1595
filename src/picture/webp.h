// Files of the type WebP.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// What the file says; nothing when it ends before its last chunk does.
std::optional<PictureFacts> ReadWebp(Bytes& bytes);

}  // namespace animate
