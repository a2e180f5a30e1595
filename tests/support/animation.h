// Pictures in true colour that are to be written as a GIF.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gif/few_colours.h"
#include "gif/gif_writer.h"

struct Animation {
  struct Picture {
    // Row by row, alpha 255 or all 0.
    std::vector<Colour> pixels;
    // In hundredths of a second.
    int delay = 0;
  };

  // In pixels.
  int width = 0;
  std::vector<Picture> pictures;

  int Height() const { return static_cast<int>(pictures[0].pixels.size()) / width; }
};

// What the writer that loses nothing makes of it; empty where it has too many colours.
inline std::string WrittenExactly(const Animation& animation) {
  FewColours colours;
  std::string frames;
  GifWriter writer(animation.width, animation.Height(),
                   [&](std::string_view bytes) { frames += bytes; });
  for (const auto& [pixels, delay] : animation.pictures) {
    std::optional<GifScreen> entries = colours.EntriesOf(pixels);
    if (!entries) {
      return "";
    }
    writer.Add(*std::move(entries), colours.Table(), delay);
  }
  const std::string head = writer.Finish();
  return head + frames;
}
