// What a picture's file says of the picture.
#pragma once

#include "film/size.h"
#include "film/turn.h"

namespace animate {

struct PictureFacts {
  // As it is stored.
  Size size;
  Turn turn = Turn::kNone;
  // Whether there may be pixels that are not wholly there.
  bool hasTransparency = false;
};

}  // namespace animate
