#include "gif/nearest_colour.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

namespace {

int Squared(int value) {
  return value * value;
}

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

// The values of all entries of one channel stand together, so that some are taken at once.
NearestColour::Match NearestColour::Nearest(std::span<const std::int16_t> list,
                                            const Colour& colour) {
  const auto count = static_cast<std::size_t>(list[0]);
  const auto part = [&](std::size_t number) { return list.data() + 1 + number * count; };
  const std::int16_t* red = part(0);
  const std::int16_t* green = part(1);
  const std::int16_t* blue = part(2);
  // A distance and, below it, the place in the list.
  int best = kFarthest;
  for (std::size_t place = 0; place < count; ++place) {
    const int distance = Squared(red[place] - colour.red) + Squared(green[place] - colour.green) +
                         Squared(blue[place] - colour.blue);
    best = std::min(best, distance << 8 | static_cast<int>(place));
  }
  return {static_cast<std::uint8_t>(part(3)[best & 0xFF]), best >> 8};
}

NearestColour::Match NearestColour::Search(const Colour& colour) {
  constexpr int kDropped = 8 - kBits;
  const auto leading = [](int value) { return static_cast<std::size_t>(value >> kDropped); };
  std::uint32_t& start = starts_[(leading(colour.red) << kBits | leading(colour.green)) << kBits |
                                 leading(colour.blue)];
  if (start == 0) {
    start = AddList(colour);
  }
  return Nearest(std::span(lists_).subspan(start), colour);
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
  std::vector<std::uint8_t> listed;
  for (std::size_t entry = 0; entry < table_.size(); ++entry) {
    if (least[entry] <= leastOfMost) {
      listed.push_back(static_cast<std::uint8_t>(entry));
    }
  }
  const std::size_t start = lists_.size();
  lists_.push_back(static_cast<std::int16_t>(listed.size()));
  for (const auto channel : {&Colour::red, &Colour::green, &Colour::blue}) {
    for (const std::uint8_t entry : listed) {
      lists_.push_back(table_[entry].*channel);
    }
  }
  lists_.insert(lists_.end(), listed.begin(), listed.end());
  return static_cast<std::uint32_t>(start);
}
