// What the screen of an animated GIF shows, and how one picture makes place for the next.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "gif/gif_colours.h"
#include "gif/indexed_picture.h"

// What each pixel shows, row by row.
using GifScreen = std::vector<GifColour>;

// A part of the screen, in pixels; one without a width has none.
struct GifArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

// A picture with the colours that it shows.
struct GifPicture {
  explicit GifPicture(const IndexedPicture& picture);

  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> indices;
  std::vector<GifColour> palette;
  GifScreen shown;
};

// The smallest area outside of which two screens of one width show the same.
GifArea ChangedArea(const GifScreen& before, const GifScreen& after, int width);

// What is drawn of a picture, and what becomes of that before the next one is drawn.
struct GifStep {
  GifArea area;
  int disposal = 0;
  // What the screen shows then.
  std::shared_ptr<const GifScreen> after;
};

// How to bring the screen from `before` to `picture` so that `next` can be drawn after it, with as
// few pixels as may be. The first picture of an animation is drawn whole.
GifStep PlanStep(const std::shared_ptr<const GifScreen>& before,
                 const std::shared_ptr<const GifPicture>& picture, const GifScreen& next,
                 bool isFirst);
