#include "gif/nearest_colour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace {

// Of a difference, in no more bits than it needs: more of them are squared at once.
int Squared(int difference) {
  const auto narrow = static_cast<std::int16_t>(difference);
  return narrow * narrow;
}

constexpr int kFarthest = std::numeric_limits<int>::max();

}  // namespace

NearestColour::NearestColour(std::vector<Colour> table)
    : table_(std::move(table)),
      found_(std::size_t{1} << kFoundBits),
      starts_(std::size_t{1} << 3 * kBits) {
  std::vector<std::uint8_t> all(table_.size());
  std::iota(all.begin(), all.end(), std::uint8_t{0});
  AddList(all);
}

NearestColour::Channels NearestColour::ChannelsOf(std::span<const std::int16_t> list) {
  const auto count = static_cast<std::size_t>(list[0]);
  const std::int16_t* first = list.data() + 1;
  return {count, first, first + count, first + 2 * count, first + 3 * count};
}

NearestColour::Match NearestColour::Nearest(std::span<const std::int16_t> list,
                                            const Colour& colour) {
  const Channels channels = ChannelsOf(list);
  // A distance and, below it, the place in the list.
  int best = kFarthest;
  for (std::size_t place = 0; place < channels.count; ++place) {
    const int distance = Squared(channels.red[place] - colour.red) +
                         Squared(channels.green[place] - colour.green) +
                         Squared(channels.blue[place] - colour.blue);
    best = std::min(best, distance << 8 | static_cast<int>(place));
  }
  return {static_cast<std::uint8_t>(channels.entries[best & 0xFF]), best >> 8};
}

NearestColour::Match NearestColour::Search(const Colour& colour) {
  constexpr int kDropped = 8 - kBits;
  const auto leading = [](int value) { return static_cast<std::size_t>(value >> kDropped); };
  std::uint32_t& start = starts_[(leading(colour.red) << kBits | leading(colour.green)) << kBits |
                                 leading(colour.blue)];
  if (start == 0) {
    start = AddList(NearTo(colour));
  }
  return Nearest(std::span(lists_).subspan(start), colour);
}

// The entries that can be nearest to a colour that begins with the same bits: those that are
// farther from the middle of these than the nearest is, by no more than all of them are wide.
std::vector<std::uint8_t> NearestColour::NearTo(const Colour& colour) const {
  constexpr int kLast = (1 << (8 - kBits)) - 1;
  // Of twice the values, so that the middle is a whole number.
  constexpr double kWide = 2 * kLast * 1.7321;
  const auto middle = [](int value) { return 2 * (value & ~kLast) + kLast; };
  const int red = middle(colour.red);
  const int green = middle(colour.green);
  const int blue = middle(colour.blue);
  const Channels all = ChannelsOf(lists_);
  std::array<int, 256> distances = {};
  int least = kFarthest;
  for (std::size_t place = 0; place < all.count; ++place) {
    distances[place] = Squared(2 * all.red[place] - red) + Squared(2 * all.green[place] - green) +
                       Squared(2 * all.blue[place] - blue);
    least = std::min(least, distances[place]);
  }
  const int most = static_cast<int>(std::pow(std::sqrt(least) + kWide, 2)) + 1;
  // Without a branch: which of them are near is hard to guess.
  std::vector<std::uint8_t> near(all.count);
  std::size_t count = 0;
  for (std::size_t place = 0; place < all.count; ++place) {
    near[count] = static_cast<std::uint8_t>(place);
    count += distances[place] <= most ? 1 : 0;
  }
  near.resize(count);
  return near;
}

// Returns where it begins.
std::uint32_t NearestColour::AddList(const std::vector<std::uint8_t>& entries) {
  const std::size_t start = lists_.size();
  lists_.push_back(static_cast<std::int16_t>(entries.size()));
  for (const auto channel : {&Colour::red, &Colour::green, &Colour::blue}) {
    for (const std::uint8_t entry : entries) {
      lists_.push_back(table_[entry].*channel);
    }
  }
  lists_.insert(lists_.end(), entries.begin(), entries.end());
  return static_cast<std::uint32_t>(start);
}
