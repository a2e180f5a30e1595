// What one frame of an animated GIF draws, and its blocks.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "gif/gif_colours.h"
#include "gif/gif_format.h"

// A part of the screen, in pixels; one without a width has none.
struct GifArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

// The smallest area that holds both.
GifArea Union(const GifArea& a, const GifArea& b);

// A picture with the colours that its pixels show.
struct GifPicture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> indices;
  std::vector<GifColour> palette;
  GifScreen shown;
};

struct GifFrame {
  // What the screen shows before the frame is drawn, and what it has to show then.
  std::shared_ptr<const GifScreen> before;
  std::shared_ptr<const GifPicture> picture;
  // What is drawn; it holds every pixel in which the two differ.
  GifArea area;
  int delay = 0;
  int disposal = 0;
};

// The area outside of which two screens of one size show the same.
GifArea ChangedArea(const GifScreen& before, const GifScreen& after, int width);

// The frame's blocks: graphic control, descriptor, the frame's own table where the global one does
// not serve or costs more, and data.
std::string GifFrameBlocks(const GifFrame& frame, const GifTable& global);
