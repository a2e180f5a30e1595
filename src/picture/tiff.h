// Files of the type TIFF.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// What the file says of its first picture; nothing when it ends before its directory or its data
// do.
std::optional<PictureFacts> ReadTiff(Bytes& bytes);

// The same for the variant with 64-bit places, which no converter decodes.
std::optional<PictureFacts> ReadBigTiff(Bytes& bytes);

}  // namespace animate
