// Files of the type PNG.
#pragma once

#include <optional>

#include "picture/bytes.h"
#include "picture/facts.h"

namespace animate {

// What the file says; nothing when it ends before the picture does.
std::optional<PictureFacts> ReadPng(Bytes& bytes);

}  // namespace animate
