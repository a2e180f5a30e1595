#include "gif/two_way_pixels.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "gif/in_parts.h"
#include "gif/lzw_clearing.h"
#include "gif/runs_to_draw.h"

namespace {

// Whether of pixels that stay short runs are better drawn, how much shorter than it could be a
// string is and what it has to gain by that, and how soon a full table is cleared. Drawings have
// few colours and long strings; in noise what stays is the only likeness.
struct Style {
  bool drawsShortRuns = false;
  std::size_t mostBack = 0;
  std::size_t leastGain = 1;
  int window = LzwClearing::kUsualWindow;
};
constexpr std::array<Style, kGifStyles> kStyles = {{{true, 2, 2},
                                                    {true, 2, 8},
                                                    {true, 0},
                                                    {false, 1, 3},
                                                    {true, 2, 8, LzwClearing::kShortWindow}}};

void PreferToDrawShortRuns(TwoWayPixels& pixels) {
  const auto stays = [&](std::size_t place) { return pixels.one[place] != pixels.other[place]; };
  const auto changes = [&](std::size_t place) {
    return pixels.other[place] != pixels.other[place - 1];
  };
  for (std::size_t row = 0; row < pixels.one.size(); row += pixels.width) {
    ForEachRunToDraw(row, row + pixels.width, stays, changes,
                     [&](std::size_t begin, std::size_t end) {
                       for (; begin < end; ++begin) {
                         std::swap(pixels.one[begin], pixels.other[begin]);
                       }
                     });
  }
}

}  // namespace

StyledData CompressInStyle(LzwEncoder& encoder, const TwoWayPixels& pixels, std::size_t style) {
  const auto encode = [&](const TwoWayPixels& ways) {
    const Style& chosen = kStyles[style];
    return encoder.Encode(
        {ways.one, ways.other, ways.codeSize, chosen.mostBack, chosen.leastGain, chosen.window});
  };
  if (!kStyles[style].drawsShortRuns) {
    return {encode(pixels), style};
  }
  TwoWayPixels preferred = pixels;
  PreferToDrawShortRuns(preferred);
  return {encode(preferred), style};
}

StyledData ShortestOfStyles(LzwEncoder& encoder, const TwoWayPixels& pixels, StyledData known) {
  const bool someStay = pixels.one != pixels.other;
  std::vector<StyledData> found = {std::move(known)};
  for (std::size_t style = 0; style < kGifStyles; ++style) {
    // Where no pixel may stay there are no runs to draw.
    if (style != found[0].style && (someStay || kStyles[style].drawsShortRuns)) {
      found.push_back({"", style});
    }
  }
  const auto compress = [&](LzwEncoder& by, StyledData& data) {
    data = CompressInStyle(by, pixels, data.style);
  };
  if (pixels.one.size() < kPixelsOfPart) {
    std::for_each(found.begin() + 1, found.end(),
                  [&](StyledData& data) { compress(encoder, data); });
  } else {
    const auto another = std::make_unique<LzwEncoder>();
    InParts(found.size() - 1, [&](std::size_t thread, std::size_t part) {
      compress(thread == 0 ? encoder : *another, found[part + 1]);
    });
  }
  // Of the same length the first one counts, which does well more often.
  return *std::min_element(found.begin(), found.end(), [](const auto& a, const auto& b) {
    return std::pair(a.bytes.size(), a.style) < std::pair(b.bytes.size(), b.style);
  });
}

bool ComparesStyles(std::size_t frame) {
  constexpr std::size_t kFirst = 2;
  constexpr std::size_t kEvery = 32;
  return frame < kFirst || frame % kEvery == 0;
}
