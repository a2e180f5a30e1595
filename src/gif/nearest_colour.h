// The entry of a colour table that is nearest to a colour.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "gif/colour.h"

// The sum of the squared differences of red, green and blue: 0 to 195,075. It is what the fidelity
// of pictures is measured by.
inline int ColourDistance(const Colour& a, const Colour& b) {
  const int red = a.red - b.red;
  const int green = a.green - b.green;
  const int blue = a.blue - b.blue;
  return red * red + green * green + blue * blue;
}

// Of a colour only those entries are looked at that can be nearest to a colour that begins with the
// same bits. They are found when the first such colour is asked for. Pictures have few colours
// beside their pixels, so what was found lately is kept.
class NearestColour {
 public:
  struct Match {
    std::uint8_t entry = 0;
    int distance = 0;
  };

  // `table` has 1 to 256 opaque colours.
  explicit NearestColour(std::vector<Colour> table);

  const std::vector<Colour>& Table() const { return table_; }

  // The first of the entries that are nearest to `colour`.
  Match Of(const Colour& colour) {
    const GifColour key = ToGifColour(colour);
    Found& found = found_[key * 0x9E3779B1U >> (32 - kFoundBits)];
    if (found.colour != key) {
      const Match match = Search(colour);
      found = {key, static_cast<std::uint32_t>(match.distance) << 8U | match.entry};
    }
    return {static_cast<std::uint8_t>(found.match), static_cast<int>(found.match >> 8U)};
  }

 private:
  // Leading bits of each of red, green and blue that lead to a list of entries.
  static constexpr int kBits = 4;

  static constexpr int kFoundBits = 15;

  // Small, so that many are near at hand: the entry is in the lowest byte, the distance above it.
  struct Found {
    GifColour colour = kTransparent;
    std::uint32_t match = 0;
  };

  // A list. The values of one channel stand together, so that some are taken at once.
  struct Channels {
    std::size_t count = 0;
    const std::int16_t* red = nullptr;
    const std::int16_t* green = nullptr;
    const std::int16_t* blue = nullptr;
    const std::int16_t* entries = nullptr;
  };

  static Channels ChannelsOf(std::span<const std::int16_t> list);
  static Match Nearest(std::span<const std::int16_t> list, const Colour& colour);
  Match Search(const Colour& colour);
  std::vector<std::uint8_t> NearTo(const Colour& colour) const;
  std::uint32_t AddList(const std::vector<std::uint8_t>& entries);

  std::vector<Colour> table_;
  std::vector<Found> found_;
  // Where each list begins in `lists_`; 0 for one that nobody has asked for.
  std::vector<std::uint32_t> starts_;
  // First of all entries, then of those of each list: how many there are, the red of each, the
  // green, the blue, and the entries.
  std::vector<std::int16_t> lists_;
};
