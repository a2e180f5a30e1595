// The blocks of one frame of an animated GIF.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "gif/gif_colours.h"
#include "gif/gif_screen.h"
#include "gif/lzw_encoder.h"

// A picture to be drawn.
struct GifFrame {
  // What the screen shows before.
  std::shared_ptr<const GifScreen> before;
  std::shared_ptr<const GifPicture> picture;
  // What is drawn of it: the pixels outside show what they have to.
  GifArea area;
  // In hundredths of a second, 0 to 65535.
  int delay = 0;
  int disposal = 0;
};

struct GifFrameBlocks {
  // Graphic control, descriptor, a table of the frame's own where the global one does not serve or
  // costs more, and data.
  std::string bytes;
  // As TwoWayPixels have it.
  std::size_t style = 0;
};

// Writes a frame in one style; or, with `compare`, in the one of all that makes it smallest.
GifFrameBlocks WriteGifFrame(LzwEncoder& encoder, const GifFrame& frame, const GifTable& global,
                             std::size_t style, bool compare);
