#include "gif/gif_frame.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <utility>
#include <vector>

#include "gif/gif_format.h"
#include "gif/two_way_pixels.h"

namespace {

constexpr int kSmallestCodeSize = 2;

// How many pixels of each entry of the picture's palette have to be drawn, and how many may stay.
struct Demand {
  std::array<std::size_t, 256> drawn = {};
  std::array<std::size_t, 256> staying = {};
  bool someStay = false;
};

int CodeSizeFor(int largestEntry) {
  return std::max(kSmallestCodeSize,
                  static_cast<int>(std::bit_width(static_cast<unsigned>(largestEntry))));
}

// The pixels as entries of a table.
struct Entries {
  TwoWayPixels pixels;
  std::optional<int> transparent;
};

// Calls `function` with the index of each pixel of the area and whether it may stay as it is.
template <typename Function>
void ForEachPixel(const GifFrame& frame, Function function) {
  for (int row = frame.area.top; row < frame.area.top + frame.area.height; ++row) {
    const std::size_t start =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(frame.picture->width) +
        static_cast<std::size_t>(frame.area.left);
    const std::uint8_t* const indices = frame.picture->indices.data() + start;
    const GifColour* const shown = frame.picture->shown.data() + start;
    const GifColour* const before = frame.before->data() + start;
    for (int column = 0; column < frame.area.width; ++column) {
      function(indices[column], before[column] == shown[column]);
    }
  }
}

Demand DemandOf(const GifFrame& frame) {
  Demand demand;
  ForEachPixel(frame, [&](std::uint8_t index, bool stays) {
    ++(stays ? demand.staying : demand.drawn)[index];
    demand.someStay |= stays;
  });
  return demand;
}

// The table of the colours that have to be drawn.
GifTable OwnTable(const GifFrame& frame, const Demand& demand) {
  std::vector<GifColourUse> counts;
  for (std::size_t index = 0; index < frame.picture->palette.size(); ++index) {
    if (demand.drawn[index] != 0) {
      counts.push_back({frame.picture->palette[index], demand.drawn[index]});
    }
  }
  return {counts, demand.someStay || frame.disposal == kGifClear};
}

// Nothing where the table lacks an entry.
std::optional<Entries> EntriesOf(const GifFrame& frame, const Demand& demand,
                                 const GifTable& table) {
  Entries entries;
  int none = table.EntryOf(kTransparent);
  const bool someStay = demand.someStay && none != GifTable::kNoEntry;
  int largest = 0;
  std::array<int, 256> entryOf = {};
  std::array<bool, 256> isDrawn = {};
  for (std::size_t index = 0; index < frame.picture->palette.size(); ++index) {
    if (demand.drawn[index] == 0 && demand.staying[index] == 0) {
      continue;
    }
    entryOf[index] = table.EntryOf(frame.picture->palette[index]);
    if (demand.drawn[index] != 0 || !someStay) {
      if (entryOf[index] == GifTable::kNoEntry) {
        return std::nullopt;
      }
      largest = std::max(largest, entryOf[index]);
      isDrawn[static_cast<std::size_t>(entryOf[index])] = true;
    }
  }
  if (someStay && CodeSizeFor(none) > CodeSizeFor(largest)) {
    // The transparent one behind all others would make all codes wider; any that is not drawn can
    // be transparent too, rather one that few pixels have.
    int free = (1 << CodeSizeFor(largest)) - 1;
    while (free >= 0 && isDrawn[static_cast<std::size_t>(free)]) {
      --free;
    }
    none = free < 0 ? none : free;
    largest = std::max(largest, none);
  }
  // Some programs clear to a colour of the global table if this or the first image, of whichever
  // kind they are, has no transparent colour, so it is named even where no pixel has it.
  if (none != GifTable::kNoEntry) {
    entries.transparent = none;
  }
  TwoWayPixels& pixels = entries.pixels;
  pixels.width = static_cast<std::size_t>(frame.area.width);
  pixels.codeSize = CodeSizeFor(largest);
  const std::size_t size = pixels.width * static_cast<std::size_t>(frame.area.height);
  pixels.one.reserve(size);
  pixels.other.reserve(size);
  ForEachPixel(frame, [&](std::uint8_t index, bool stays) {
    const int drawn = entryOf[index];
    const int one = stays && someStay ? none : drawn;
    const bool canBeDrawn = drawn != GifTable::kNoEntry && drawn < 1 << pixels.codeSize;
    pixels.one.push_back(static_cast<std::uint8_t>(one));
    pixels.other.push_back(static_cast<std::uint8_t>(canBeDrawn ? drawn : one));
  });
  return entries;
}

std::string Descriptor(const GifArea& area, const GifTable* table) {
  const int packed = table == nullptr ? 0 : kGifTableFlag | (table->Bits() - 1);
  return static_cast<char>(kGifImage) + GifWord(area.left) + GifWord(area.top) +
         GifWord(area.width) + GifWord(area.height) + static_cast<char>(packed) +
         (table == nullptr ? "" : table->Bytes());
}

}  // namespace

GifFrameBlocks WriteGifFrame(LzwEncoder& encoder, const GifFrame& frame, const GifTable& global,
                             std::size_t style, bool compare) {
  const Demand demand = DemandOf(frame);
  const GifTable own = OwnTable(frame, demand);
  std::optional<Entries> entries = EntriesOf(frame, demand, global);
  const GifTable* table = nullptr;
  StyledData data = entries ? CompressInStyle(encoder, entries->pixels, style) : StyledData{};
  // The own table has to be paid for by narrower codes.
  if (!entries || (own.Bits() < global.Bits() && own.Bytes().size() < data.bytes.size() / 2)) {
    auto ownEntries = EntriesOf(frame, demand, own);
    StyledData ownData = CompressInStyle(encoder, ownEntries->pixels, style);
    if (!entries || own.Bytes().size() + ownData.bytes.size() < data.bytes.size()) {
      entries = std::move(ownEntries);
      data = std::move(ownData);
      table = &own;
    }
  }
  if (compare) {
    data = ShortestOfStyles(encoder, entries->pixels, std::move(data));
  }
  return {GifControlBlock({frame.delay, frame.disposal, entries->transparent}) +
              Descriptor(frame.area, table) + data.bytes,
          data.style};
}
