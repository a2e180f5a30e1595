// Files of the type PNG.
#pragma once

#include <optional>

#include "film/size.h"
#include "picture/bytes.h"

namespace animate {

// The size of the picture; nothing when the file ends before the picture does.
std::optional<Size> ReadPng(Bytes& bytes);

}  // namespace animate
