// Animations of any kind, drawn by numbers.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "tests/support/animation.h"

// Gives a number from 0 to one below its argument.
using NumberBelow = std::function<int(int)>;

struct IndexedPicture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> indices;
  std::vector<Colour> palette;
};

inline void FillPalette(const NumberBelow& below, int colours, int transparent,
                        IndexedPicture& picture) {
  const auto shift = static_cast<std::uint8_t>(below(256));
  picture.palette.clear();
  for (int index = 0; index < colours; ++index) {
    const auto value = static_cast<std::uint8_t>(index * 7 + shift);
    picture.palette.push_back({value, static_cast<std::uint8_t>(value / 2), shift});
    if (index == transparent) {
      picture.palette.back() = {0, 0, 0, 0};
    }
  }
}

// Of one colour, or of any where noisy.
inline void FillRectangle(const NumberBelow& below, bool noisy, IndexedPicture& picture) {
  const auto index = [&] {
    return static_cast<std::uint8_t>(below(static_cast<int>(picture.palette.size())));
  };
  const int top = below(picture.height);
  const int bottom = top + 1 + below(picture.height - top);
  const int start = below(picture.width);
  const int end = start + 1 + below(picture.width - start);
  const std::uint8_t colour = index();
  for (int y = top; y < bottom; ++y) {
    for (int x = start; x < end; ++x) {
      const int place = y * picture.width + x;
      picture.indices[static_cast<std::size_t>(place)] = noisy ? index() : colour;
    }
  }
}

// Pictures of one size, at most so large, with their delays: rectangles of one colour and of noise
// drawn over what was there, earlier pictures, other palettes, colours that are transparent.
inline Animation AnimationOfNumbers(const NumberBelow& below, int mostWide, int mostHigh) {
  IndexedPicture picture;
  picture.width = 1 + below(mostWide);
  picture.height = 1 + below(mostHigh);
  picture.indices.resize(static_cast<std::size_t>(picture.width) *
                         static_cast<std::size_t>(picture.height));
  const int colours = 1 + (below(16) == 15 ? 252 + below(4) : below(below(8) == 7 ? 256 : 5));
  const int transparent = below(2) == 0 ? below(256) : colours;
  FillPalette(below, colours, transparent, picture);
  Animation animation = {picture.width, {}};
  std::vector<IndexedPicture> pictures;
  for (int left = below(6); left >= 0; --left) {
    const int kind = below(8);
    if (kind == 0) {
      FillPalette(below, colours, transparent, picture);
    } else if (kind < 3 && !pictures.empty()) {
      picture = pictures[static_cast<std::size_t>(below(static_cast<int>(pictures.size())))];
    } else {
      FillRectangle(below, kind < 5, picture);
    }
    pictures.push_back(picture);
    const int delay = below(16) == 0 ? 65530 + below(256) * 300 : 2 + below(99);
    animation.pictures.push_back({{}, delay});
    for (const std::uint8_t index : picture.indices) {
      animation.pictures.back().pixels.push_back(picture.palette[index]);
    }
  }
  return animation;
}
