// What the screen of an animated GIF shows, and how one picture makes place for the next.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "gif/gif_format.h"

// What each pixel shows, row by row, as an entry of a table of different colours.
using GifScreen = std::vector<std::uint8_t>;
// What shows nothing.
inline constexpr std::uint8_t kTransparentEntry = 0;

// The smallest area outside of which two screens of one width show the same.
GifArea ChangedArea(const GifScreen& before, const GifScreen& after, int width);

// What is drawn of a picture, and what becomes of that before the next one is drawn.
struct GifStep {
  GifArea area;
  int disposal = 0;
  // What the screen shows then.
  std::shared_ptr<const GifScreen> after;
};

// How to bring the screen, `width` pixels each row, from `before` to `now` so that `next` can be
// drawn after it, with as few pixels as may be. The first picture of an animation is drawn whole.
GifStep PlanStep(const std::shared_ptr<const GifScreen>& before,
                 const std::shared_ptr<const GifScreen>& now, const GifScreen& next, int width,
                 bool isFirst);
