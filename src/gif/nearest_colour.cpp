#include "gif/nearest_colour.h"

#include <algorithm>
#include <limits>
#include <span>
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
      starts_(std::size_t{1} << 3 * kBits),
      lists_(1) {}

NearestColour::Match NearestColour::Search(const Colour& colour) {
  constexpr int kDropped = 8 - kBits;
  const auto leading = [](int value) { return static_cast<std::size_t>(value >> kDropped); };
  std::uint32_t& start = starts_[(leading(colour.red) << kBits | leading(colour.green)) << kBits |
                                 leading(colour.blue)];
  if (start == 0) {
    start = AddList(colour);
  }
  Match best = {0, kFarthest};
  const std::size_t count = lists_[start].entry + std::size_t{1};
  for (const auto& [listed, entry] : std::span(lists_).subspan(start + 1, count)) {
    const int distance = ColourDistance(listed, colour);
    if (distance < best.distance) {
      best = {entry, distance};
    }
  }
  return best;
}

// No entry can be nearest whose distance to each of the colours is more than another's largest.
std::uint32_t NearestColour::AddList(const Colour& colour) {
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
  const std::size_t start = lists_.size();
  lists_.emplace_back();
  for (std::size_t entry = 0; entry < table_.size(); ++entry) {
    if (least[entry] <= leastOfMost) {
      lists_.push_back({table_[entry], static_cast<std::uint8_t>(entry)});
    }
  }
  lists_[start].entry = static_cast<std::uint8_t>(lists_.size() - start - 2);
  return static_cast<std::uint32_t>(start);
}
