#include "gif/gif_frame.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

#include "gif/gif_format.h"
#include "gif/gif_table.h"
#include "gif/two_way_pixels.h"

namespace {

constexpr int kSmallestCodeSize = 2;

// How many pixels of each entry have to be drawn, and whether some may stay.
struct Demand {
  std::array<std::size_t, 256> drawn = {};
  bool someStay = false;
};

// A table, and its entry for each of the global one; the transparent one comes first, if there is
// one.
struct Entries {
  static constexpr int kNone = -1;

  std::vector<Colour> table;
  std::array<int, 256> of = {};
};

// Calls `function` with the entry of each pixel of the area and whether it may stay as it is.
template <typename Function>
void ForEachPixel(const GifFrame& frame, Function function) {
  for (int row = frame.area.top; row < frame.area.top + frame.area.height; ++row) {
    const std::size_t start =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(frame.width) +
        static_cast<std::size_t>(frame.area.left);
    const std::uint8_t* const before = frame.before->data() + start;
    const std::uint8_t* const picture = frame.picture->data() + start;
    for (int column = 0; column < frame.area.width; ++column) {
      function(picture[column], before[column] == picture[column]);
    }
  }
}

Demand DemandOf(const GifFrame& frame) {
  Demand demand;
  ForEachPixel(frame, [&](std::uint8_t entry, bool stays) {
    demand.drawn[entry] += stays ? 0 : 1;
    demand.someStay |= stays;
  });
  return demand;
}

Entries GlobalEntries(std::span<const Colour> global) {
  Entries entries = {{global.begin(), global.end()}, {}};
  std::iota(entries.of.begin(), entries.of.end(), 0);
  return entries;
}

// Of the colours that have to be drawn, those of most pixels first.
Entries OwnEntries(std::span<const Colour> global, const Demand& demand, bool wantsTransparent) {
  std::vector<std::size_t> order;
  for (std::size_t entry = 1; entry < global.size(); ++entry) {
    if (demand.drawn[entry] != 0) {
      order.push_back(entry);
    }
  }
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return demand.drawn[a] > demand.drawn[b]; });
  if (wantsTransparent) {
    order.insert(order.begin(), kTransparentEntry);
  }
  Entries entries;
  entries.of.fill(Entries::kNone);
  for (const std::size_t entry : order) {
    entries.of[entry] = static_cast<int>(entries.table.size());
    entries.table.push_back(global[entry]);
  }
  return entries;
}

TwoWayPixels WaysOf(const GifFrame& frame, const Demand& demand, const Entries& entries) {
  int largest = 0;
  for (std::size_t entry = 0; entry < demand.drawn.size(); ++entry) {
    largest = std::max(largest, demand.drawn[entry] == 0 ? 0 : entries.of[entry]);
  }
  TwoWayPixels pixels;
  pixels.width = static_cast<std::size_t>(frame.area.width);
  pixels.codeSize =
      std::max(kSmallestCodeSize, static_cast<int>(std::bit_width(static_cast<unsigned>(largest))));
  const std::size_t size = pixels.width * static_cast<std::size_t>(frame.area.height);
  pixels.one.reserve(size);
  pixels.other.reserve(size);
  ForEachPixel(frame, [&](std::uint8_t entry, bool stays) {
    const int drawn = entries.of[entry];
    const bool canBeDrawn = drawn != Entries::kNone && drawn < 1 << pixels.codeSize;
    pixels.one.push_back(stays ? kTransparentEntry : static_cast<std::uint8_t>(drawn));
    pixels.other.push_back(canBeDrawn ? static_cast<std::uint8_t>(drawn) : kTransparentEntry);
  });
  return pixels;
}

}  // namespace

GifFrameBlocks WriteGifFrame(LzwEncoder& encoder, const GifFrame& frame,
                             std::span<const Colour> global, std::size_t style, bool compare) {
  const Demand demand = DemandOf(frame);
  TwoWayPixels pixels = WaysOf(frame, demand, GlobalEntries(global));
  StyledData data = CompressInStyle(encoder, pixels, style);
  // Some programs clear to a colour of the global table if this or the first image, of whichever
  // kind they are, has no transparent colour, so it is named even where no pixel has it.
  std::optional<int> transparent = kTransparentEntry;
  const bool wantsTransparent = demand.someStay || frame.disposal == kGifClear;
  const Entries own = OwnEntries(global, demand, wantsTransparent);
  const int ownBits = GifTableBits(own.table.size());
  std::string table = GifTableBytes(own.table, ownBits);
  // The own table has to be paid for by narrower codes.
  bool isOwn = false;
  if (ownBits < GifTableBits(global.size()) && table.size() < data.bytes.size() / 2) {
    TwoWayPixels ownPixels = WaysOf(frame, demand, own);
    StyledData ownData = CompressInStyle(encoder, ownPixels, style);
    isOwn = table.size() + ownData.bytes.size() < data.bytes.size();
    if (isOwn) {
      pixels = std::move(ownPixels);
      data = std::move(ownData);
    }
  }
  if (isOwn && !wantsTransparent) {
    transparent.reset();
  }
  if (compare) {
    data = ShortestOfStyles(encoder, pixels, std::move(data));
  }
  return {GifControlBlock({frame.delay, frame.disposal, transparent}) +
              GifDescriptor(frame.area, isOwn ? table : "") + data.bytes,
          compare ? std::optional(data.style) : std::nullopt};
}
