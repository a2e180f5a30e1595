#include "gif/gif_colours.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t kMostColours = 256;

}  // namespace

GifTable::GifTable(std::vector<GifColourUse> colours, bool wantsTransparent) {
  std::sort(colours.begin(), colours.end(),
            [](const auto& a, const auto& b) { return a.colour < b.colour; });
  std::vector<GifColourUse> distinct;
  distinct.reserve(colours.size());
  for (const auto& [colour, pixels] : colours) {
    if (distinct.empty() || distinct.back().colour != colour) {
      distinct.push_back({colour, 0});
    }
    distinct.back().pixels += pixels;
  }
  std::stable_sort(distinct.begin(), distinct.end(),
                   [](const auto& a, const auto& b) { return a.pixels > b.pixels; });
  colours_.reserve(distinct.size() + 1);
  for (const auto& [colour, pixels] : distinct) {
    if (colour != kTransparent) {
      colours_.push_back(colour);
    }
  }
  if (wantsTransparent && colours_.size() < kMostColours) {
    // At the front an image with few colours has narrow codes for it; but it should not widen those
    // of an image that has no use for it.
    const bool isFull = colours_.size() >= 4 && std::has_single_bit(colours_.size());
    colours_.insert(isFull ? colours_.end() : colours_.begin(), kTransparent);
  }
  entries_.reserve(colours_.size());
  for (std::size_t entry = 0; entry < colours_.size(); ++entry) {
    entries_.emplace_back(colours_[entry], static_cast<int>(entry));
  }
  std::sort(entries_.begin(), entries_.end());
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
