// Files of the types PBM, PGM and PPM.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// What the file says; nothing when it ends before its pixels do. Those that are written as text are
// not counted.
std::optional<PictureFacts> ReadPnm(Bytes& bytes);

}  // namespace animate
