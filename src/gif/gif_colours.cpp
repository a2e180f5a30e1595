#include "gif/gif_colours.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace {

constexpr std::size_t kMostColours = 256;

}  // namespace

GifTable::GifTable(std::vector<GifColourUse> colours, bool wantsTransparent) {
  std::sort(colours.begin(), colours.end(),
            [](const auto& a, const auto& b) { return a.colour < b.colour; });
  std::vector<GifColourUse> distinct;
  distinct.reserve(colours.size());
  for (const auto& [colour, pixels] : colours) {
    if (colour == kTransparent) {
      continue;
    }
    if (distinct.empty() || distinct.back().colour != colour) {
      distinct.push_back({colour, 0});
    }
    distinct.back().pixels += pixels;
  }
  std::vector<std::size_t> ranks(distinct.size());
  std::iota(ranks.begin(), ranks.end(), std::size_t{0});
  std::sort(ranks.begin(), ranks.end(), [&](std::size_t a, std::size_t b) {
    return distinct[a].pixels == distinct[b].pixels ? a < b
                                                    : distinct[a].pixels > distinct[b].pixels;
  });
  const std::size_t free = wantsTransparent && distinct.size() < kMostColours ? 1 : 0;
  // At the front an image with few colours has narrow codes for it; but it should not widen those
  // of an image that has no use for it.
  const bool isFull = distinct.size() >= 4 && std::has_single_bit(distinct.size());
  const std::size_t first = isFull ? 0 : free;
  colours_.resize(distinct.size() + free, kTransparent);
  entries_.resize(colours_.size());
  if (free != 0) {
    // Its number is below that of any colour.
    entries_[0] = {kTransparent, isFull ? static_cast<int>(distinct.size()) : 0};
  }
  for (std::size_t rank = 0; rank < ranks.size(); ++rank) {
    const GifColour colour = distinct[ranks[rank]].colour;
    colours_[first + rank] = colour;
    entries_[free + ranks[rank]] = {colour, static_cast<int>(first + rank)};
  }
}

int GifTable::EntryOf(GifColour colour) const {
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), std::pair(colour, 0));
  return found == entries_.end() || found->first != colour ? kNoEntry : found->second;
}

int GifTable::Bits() const {
  return std::max(1,
                  static_cast<int>(std::bit_width(std::max<std::size_t>(colours_.size(), 1) - 1)));
}

std::string GifTable::Bytes() const {
  std::string bytes(std::size_t{3} << Bits(), '\0');
  auto byte = bytes.begin();
  for (const GifColour colour : colours_) {
    *byte++ = static_cast<char>(colour);
    *byte++ = static_cast<char>(colour >> 8);
    *byte++ = static_cast<char>(colour >> 16);
  }
  return bytes;
}
