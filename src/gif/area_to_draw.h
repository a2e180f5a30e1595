// Which part of a picture a frame draws.
#pragma once

#include <span>

#include "gif/colour.h"
#include "gif/gif_format.h"
#include "gif/lossy_lzw_encoder.h"

struct AreaToDraw {
  // Of no size when nothing is worth it.
  GifArea area;
  // Whether something in it is shown that must be gone when the next picture is.
  bool clears = false;
};

// The area outside of which no row and no column of `pixels`, `width` each row, is worth a frame's
// growth, and that holds all of them that `next` has transparent. Small errors of many pixels add
// up only where they are new: what stands has been weighed when it was drawn. `bitPrice` as
// LossyImage has it.
AreaToDraw FindAreaToDraw(std::span<const LossyPixel> pixels, std::span<const Colour> next,
                          int width, float bitPrice);
