#include "gif/gif_frame.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <utility>

#include "gif/lzw_encoder.h"

namespace {

constexpr int kSmallestCodeSize = 2;
constexpr int kNoEntry = -1;

// How often each colour of a picture's palette is drawn with, and whether any pixel may stay.
struct Drawn {
  std::array<std::size_t, 256> counts = {};
  bool anyStays = false;
};

template <typename Function>
void ForEachPixel(const GifFrame& frame, Function function) {
  const auto width = static_cast<std::size_t>(frame.picture->width);
  for (int row = 0; row < frame.area.height; ++row) {
    const std::size_t start = static_cast<std::size_t>(frame.area.top + row) * width +
                              static_cast<std::size_t>(frame.area.left);
    for (std::size_t place = start; place < start + static_cast<std::size_t>(frame.area.width);
         ++place) {
      function(frame.picture->indices[place],
               (*frame.before)[place] == frame.picture->shown[place]);
    }
  }
}

Drawn CountDrawn(const GifFrame& frame) {
  Drawn drawn;
  ForEachPixel(frame, [&](std::uint8_t index, bool stays) {
    drawn.counts[index] += stays ? 0 : 1;
    drawn.anyStays |= stays;
  });
  return drawn;
}

// The descriptor, with `table` as the image's own.
std::string Descriptor(const GifArea& area, const GifTable* table) {
  const int packed = table == nullptr ? 0 : kGifTableFlag | (table->Bits() - 1);
  return static_cast<char>(kGifImage) + GifWord(area.left) + GifWord(area.top) +
         GifWord(area.width) + GifWord(area.height) + static_cast<char>(packed) +
         (table == nullptr ? "" : table->Bytes());
}

// The blocks with the entries of `table`, or nothing where it lacks one.
std::string Blocks(const GifFrame& frame, const Drawn& drawn, const GifTable& table, bool isOwn) {
  std::array<int, 256> entries = {};
  int largest = 0;
  const int transparent = table.EntryOf(kTransparent);
  if (drawn.anyStays) {
    largest = transparent;
  }
  for (std::size_t index = 0; index < frame.picture->palette.size(); ++index) {
    entries[index] = table.EntryOf(frame.picture->palette[index]);
    if (drawn.counts[index] != 0) {
      if (entries[index] == kNoEntry) {
        return {};
      }
      largest = std::max(largest, entries[index]);
    }
  }
  const int codeSize =
      std::max(kSmallestCodeSize, static_cast<int>(std::bit_width(unsigned(largest))));
  std::vector<std::uint8_t> one;
  std::vector<std::uint8_t> other;
  bool complete = true;
  bool usesTransparent = false;
  ForEachPixel(frame, [&](std::uint8_t index, bool stays) {
    int entry = entries[index];
    int second = entry;
    if (stays) {
      second = transparent == kNoEntry ? entry : transparent;
      if (entry == kNoEntry || entry >= 1 << codeSize) {
        entry = second;
      }
    }
    complete &= entry != kNoEntry;
    usesTransparent |= second == transparent;
    one.push_back(static_cast<std::uint8_t>(second));
    other.push_back(static_cast<std::uint8_t>(entry));
  });
  if (!complete) {
    return {};
  }
  GifControl control = {frame.delay, frame.disposal, std::nullopt};
  if (usesTransparent) {
    control.transparent = transparent;
  }
  LzwEncoder encoder;
  return GifControlBlock(control) + Descriptor(frame.area, isOwn ? &table : nullptr) +
         encoder.Encode({one, other, codeSize});
}

}  // namespace

GifArea Union(const GifArea& a, const GifArea& b) {
  if (a.width == 0 || b.width == 0) {
    return a.width == 0 ? b : a;
  }
  const int left = std::min(a.left, b.left);
  const int top = std::min(a.top, b.top);
  return {left, top, std::max(a.left + a.width, b.left + b.width) - left,
          std::max(a.top + a.height, b.top + b.height) - top};
}

GifArea ChangedArea(const GifScreen& before, const GifScreen& after, int width) {
  const auto columns = static_cast<std::size_t>(width);
  const std::size_t rows = before.size() / columns;
  std::size_t left = columns;
  std::size_t right = 0;
  std::size_t top = rows;
  std::size_t bottom = 0;
  for (std::size_t row = 0; row < rows; ++row) {
    const GifColour* const a = before.data() + row * columns;
    const GifColour* const b = after.data() + row * columns;
    const auto first = static_cast<std::size_t>(std::mismatch(a, a + columns, b).first - a);
    if (first == columns) {
      continue;
    }
    std::size_t last = columns;
    while (a[last - 1] == b[last - 1]) {
      --last;
    }
    left = std::min(left, first);
    right = std::max(right, last);
    top = std::min(top, row);
    bottom = row + 1;
  }
  if (right == 0) {
    return {};
  }
  return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
          static_cast<int>(bottom - top)};
}

std::string GifFrameBlocks(const GifFrame& frame, const GifTable& global) {
  const Drawn drawn = CountDrawn(frame);
  std::string best = Blocks(frame, drawn, global, false);
  std::vector<std::pair<std::size_t, GifColour>> used;
  for (std::size_t index = 0; index < frame.picture->palette.size(); ++index) {
    const GifColour colour = frame.picture->palette[index];
    if (drawn.counts[index] == 0 || colour == kTransparent) {
      continue;
    }
    if (const auto same = std::find_if(used.begin(), used.end(),
                                       [&](const auto& u) { return u.second == colour; });
        same != used.end()) {
      same->first += drawn.counts[index];
    } else {
      used.emplace_back(drawn.counts[index], colour);
    }
  }
  std::stable_sort(used.begin(), used.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<GifColour> colours;
  for (const auto& [count, colour] : used) {
    colours.push_back(colour);
  }
  const GifTable own(colours);
  if (best.empty() || own.Bits() < global.Bits()) {
    const std::string with = Blocks(frame, drawn, own, true);
    if (best.empty() || (!with.empty() && with.size() < best.size())) {
      best = with;
    }
  }
  return best;
}
