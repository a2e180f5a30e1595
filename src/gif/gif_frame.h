// The blocks of one frame of an animated GIF.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "gif/colour.h"
#include "gif/gif_screen.h"
#include "gif/lzw_encoder.h"

// A picture to be drawn.
struct GifFrame {
  // What the screen shows before, and with it.
  std::shared_ptr<const GifScreen> before;
  std::shared_ptr<const GifScreen> picture;
  // Of both, in pixels.
  int width = 0;
  // What is drawn of it: the pixels outside show what they have to.
  GifArea area;
  // In hundredths of a second, 0 to 65535.
  int delay = 0;
  int disposal = 0;
};

struct GifFrameBlocks {
  // Graphic control, descriptor, a table of the frame's own where the global one costs more, and
  // data.
  std::string bytes;
  // The best style, as TwoWayPixels have it, where all were compared.
  std::optional<std::size_t> bestStyle;
};

// Writes a frame, the entries of which are those of the `global` table, in one style; or, with
// `compare`, in the one of all that makes it smallest.
GifFrameBlocks WriteGifFrame(LzwEncoder& encoder, const GifFrame& frame,
                             std::span<const Colour> global, std::size_t style, bool compare);
