#include "gif/nearest_colour.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int kFarthest = std::numeric_limits<int>::max();

// Of a value to the values from `low` to `high`: the squared distance to the nearest of them, and
// to the farthest.
struct Reach {
  int least = 0;
  int most = 0;
};

Reach ReachOf(int value, int low, int high) {
  const int outside = std::max({low - value, value - high, 0});
  const int across = std::max(high - value, value - low);
  return {outside * outside, across * across};
}

}  // namespace

NearestColour::NearestColour(std::vector<Colour> table)
    : table_(std::move(table)),
      found_(std::size_t{1} << kFoundBits),
      entries_(std::size_t{1} << 3 * kBits),
      neighbours_(table_.size()) {}

NearestColour::Match NearestColour::Search(const Colour& colour) {
  constexpr int kDropped = 8 - kBits;
  const auto leading = [](int value) { return static_cast<std::size_t>(value >> kDropped); };
  auto& entries = entries_[(leading(colour.red) << kBits | leading(colour.green)) << kBits |
                           leading(colour.blue)];
  if (entries.empty()) {
    entries = EntriesFor(colour);
  }
  Match best = {0, kFarthest};
  for (const std::uint8_t entry : entries) {
    const int distance = ColourDistance(table_[entry], colour);
    if (distance < best.distance) {
      best = {entry, distance};
    }
  }
  return best;
}

// No entry can be nearest whose distance to each of the colours is more than another's largest.
std::vector<std::uint8_t> NearestColour::EntriesFor(const Colour& colour) const {
  constexpr int kSpan = (1 << (8 - kBits)) - 1;
  const auto reach = [](int value, int one) {
    const int low = one & ~kSpan;
    return ReachOf(value, low, low + kSpan);
  };
  std::array<int, 256> least = {};
  int leastOfMost = kFarthest;
  for (std::size_t entry = 0; entry < table_.size(); ++entry) {
    const Reach red = reach(table_[entry].red, colour.red);
    const Reach green = reach(table_[entry].green, colour.green);
    const Reach blue = reach(table_[entry].blue, colour.blue);
    least[entry] = red.least + green.least + blue.least;
    leastOfMost = std::min(leastOfMost, red.most + green.most + blue.most);
  }
  std::vector<std::uint8_t> entries;
  for (std::size_t entry = 0; entry < table_.size(); ++entry) {
    if (least[entry] <= leastOfMost) {
      entries.push_back(static_cast<std::uint8_t>(entry));
    }
  }
  return entries;
}

std::span<const NearestColour::Neighbour> NearestColour::NeighboursOf(std::size_t entry) {
  constexpr std::size_t kMost = 32;
  auto& neighbours = neighbours_[entry];
  if (neighbours.empty()) {
    for (std::size_t other = 0; other < table_.size(); ++other) {
      neighbours.push_back(
          {static_cast<std::uint8_t>(other), ColourDistance(table_[entry], table_[other])});
    }
    std::swap(neighbours[0], neighbours[entry]);
    const auto kept = static_cast<std::ptrdiff_t>(std::min(kMost, neighbours.size()));
    std::partial_sort(
        neighbours.begin() + 1, neighbours.begin() + kept, neighbours.end(),
        [](const Neighbour& a, const Neighbour& b) { return a.distance < b.distance; });
    neighbours.resize(static_cast<std::size_t>(kept));
  }
  return neighbours;
}
