// Files of the type TGA.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// Whether the bytes can be the start of a TGA file, which has no signature.
bool IsTga(Bytes& bytes);

// What the file says; nothing when it ends before its uncompressed pixels do.
std::optional<PictureFacts> ReadTga(Bytes& bytes);

}  // namespace animate
