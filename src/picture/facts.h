// What a picture's file says of the picture.
#pragma once

#include <cstdint>
#include <string>

#include "film/size.h"
#include "film/transparency.h"
#include "film/turn.h"

namespace animate {

struct PictureFacts {
  // As it is stored.
  Size size;
  Turn turn = Turn::kNone;
  // The place in the file of the name by which programs know that the turn is told; 0 for none.
  std::uint64_t turnAt = 0;
  Transparency transparency = Transparency::kNone;
  // Whether a colour of a pixel has more than 8 bits.
  bool isDeep = false;
  // Whether the file holds more pictures after this one.
  bool hasMore = false;
  // Why converters do not show it as it is: "has tiles"; empty for nothing known.
  std::string fault = {};
};

}  // namespace animate
