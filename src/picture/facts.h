// What a picture's file says of the picture.
#pragma once

#include "film/size.h"
#include "film/transparency.h"
#include "film/turn.h"

namespace animate {

struct PictureFacts {
  // As it is stored.
  Size size;
  Turn turn = Turn::kNone;
  Transparency transparency = Transparency::kNone;
};

}  // namespace animate
