#include "gif/gif_frame.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <utility>
#include <vector>

#include "gif/gif_format.h"
#include "gif/lzw_encoder.h"

namespace {

constexpr int kSmallestCodeSize = 2;

// Whether of pixels that stay short runs are better drawn, and what a string has to gain by being
// short. Drawings have few colours and long strings; in noise what stays is the only likeness.
struct Style {
  bool drawsShortRuns = false;
  std::size_t leastGain = 0;
};
constexpr std::array<Style, kGifStyles> kStyles = {{{true, 2}, {true, 3}, {false, 2}, {false, 3}}};

// How many pixels of each entry of the picture's palette have to be drawn, and how many may stay.
struct Demand {
  std::array<std::size_t, 256> drawn = {};
  std::array<std::size_t, 256> staying = {};
  bool someStay = false;
};

// The pixels as entries of a table, each in two ways; those that may stay are transparent in `one`.
struct Entries {
  std::vector<std::uint8_t> one;
  std::vector<std::uint8_t> other;
  std::optional<int> transparent;
  int codeSize = kSmallestCodeSize;
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
  const int none = table.EntryOf(kTransparent);
  const bool someStay = demand.someStay && none != GifTable::kNoEntry;
  int largest = someStay ? none : 0;
  std::array<int, 256> entryOf = {};
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
    }
  }
  // Some programs clear to a colour of the global table if this or the first image, of whichever
  // kind they are, has no transparent colour, so it is named even where no pixel has it.
  if (none != GifTable::kNoEntry) {
    entries.transparent = none;
  }
  entries.codeSize =
      std::max(entries.codeSize, static_cast<int>(std::bit_width(static_cast<unsigned>(largest))));
  const auto size =
      static_cast<std::size_t>(frame.area.width) * static_cast<std::size_t>(frame.area.height);
  entries.one.reserve(size);
  entries.other.reserve(size);
  ForEachPixel(frame, [&](std::uint8_t index, bool stays) {
    const int drawn = entryOf[index];
    const int one = stays && someStay ? none : drawn;
    const bool canBeDrawn = drawn != GifTable::kNoEntry && drawn < 1 << entries.codeSize;
    entries.one.push_back(static_cast<std::uint8_t>(one));
    entries.other.push_back(static_cast<std::uint8_t>(canBeDrawn ? drawn : one));
  });
  return entries;
}

// Prefers to draw runs of pixels that may stay where the row changes its colour no more often so
// than with a transparent run, which begins and ends.
void PreferToDrawShortRuns(Entries& entries, std::size_t width) {
  constexpr int kChangesOfTransparentRun = 2;
  const auto stays = [&](std::size_t place) { return entries.one[place] != entries.other[place]; };
  for (std::size_t row = 0; row < entries.one.size(); row += width) {
    const auto changes = [&](std::size_t place) {
      return place > row && place < row + width && entries.other[place] != entries.other[place - 1];
    };
    for (std::size_t start = row; start < row + width; ++start) {
      std::size_t end = start;
      int count = 0;
      for (; end < row + width && stays(end); ++end) {
        count += changes(end) ? 1 : 0;
      }
      count += end > start && changes(end) ? 1 : 0;
      if (count <= kChangesOfTransparentRun) {
        const auto from = static_cast<std::ptrdiff_t>(start);
        const auto to = static_cast<std::ptrdiff_t>(end);
        std::swap_ranges(entries.one.begin() + from, entries.one.begin() + to,
                         entries.other.begin() + from);
      }
      start = end;
    }
  }
}

// The image data of the pixels.
std::string Data(LzwEncoder& encoder, Entries entries, const GifArea& area, const Style& style) {
  if (style.drawsShortRuns) {
    PreferToDrawShortRuns(entries, static_cast<std::size_t>(area.width));
  }
  return encoder.Encode({entries.one, entries.other, entries.codeSize, style.leastGain});
}

std::string Descriptor(const GifArea& area, const GifTable* table) {
  const int packed = table == nullptr ? 0 : kGifTableFlag | (table->Bits() - 1);
  return static_cast<char>(kGifImage) + GifWord(area.left) + GifWord(area.top) +
         GifWord(area.width) + GifWord(area.height) + static_cast<char>(packed) +
         (table == nullptr ? "" : table->Bytes());
}

}  // namespace

GifFrameBlocks WriteGifFrame(const GifFrame& frame, const GifTable& global, std::size_t style,
                             bool compare) {
  const Demand demand = DemandOf(frame);
  const GifTable own = OwnTable(frame, demand);
  std::optional<Entries> entries = EntriesOf(frame, demand, global);
  const GifTable* table = nullptr;
  LzwEncoder encoder;
  std::string data = entries ? Data(encoder, *entries, frame.area, kStyles[style]) : "";
  // The own table has to be paid for by narrower codes.
  if (!entries || (own.Bits() < global.Bits() && own.Bytes().size() < data.size() / 2)) {
    auto ownEntries = EntriesOf(frame, demand, own);
    auto ownData = Data(encoder, *ownEntries, frame.area, kStyles[style]);
    if (!entries || own.Bytes().size() + ownData.size() < data.size()) {
      entries = std::move(ownEntries);
      data = std::move(ownData);
      table = &own;
    }
  }
  std::size_t best = style;
  for (std::size_t other = 0; compare && other < kGifStyles; ++other) {
    // Where no pixel may stay there are no runs to draw.
    if (other != style && (demand.someStay || kStyles[other].drawsShortRuns)) {
      auto otherData = Data(encoder, *entries, frame.area, kStyles[other]);
      if (otherData.size() < data.size()) {
        data = std::move(otherData);
        best = other;
      }
    }
  }
  return {GifControlBlock({frame.delay, frame.disposal, entries->transparent}) +
              Descriptor(frame.area, table) + data,
          best};
}
