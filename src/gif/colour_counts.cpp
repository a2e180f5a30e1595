#include "gif/colour_counts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <queue>
#include <utility>

#include "gif/nearest_colour.h"

namespace {

using Channels = std::array<double, 3>;

// A mean colour and how much there is of it.
struct Spot {
  Channels mean = {};
  double weight = 0;
};

Colour Rounded(const Channels& mean) {
  const auto rounded = [](double value) { return static_cast<std::uint8_t>(std::lround(value)); };
  return {rounded(mean[0]), rounded(mean[1]), rounded(mean[2])};
}

// Spots that one colour is to stand for.
struct Group {
  std::size_t begin = 0;
  std::size_t end = 0;
  Channels mean = {};
  // The squared distances to the mean, and the channel that has most of them.
  double spread = 0;
  std::size_t widest = 0;
  bool operator<(const Group& other) const { return spread < other.spread; }
};

Group GroupOf(const std::vector<Spot>& spots, std::size_t begin, std::size_t end) {
  Group group = {begin, end};
  double weight = 0;
  Channels squares = {};
  for (std::size_t index = begin; index < end; ++index) {
    weight += spots[index].weight;
    for (std::size_t channel = 0; channel < 3; ++channel) {
      const double value = spots[index].mean[channel];
      group.mean[channel] += value * spots[index].weight;
      squares[channel] += value * value * spots[index].weight;
    }
  }
  Channels spread = {};
  for (std::size_t channel = 0; channel < 3; ++channel) {
    group.mean[channel] /= weight;
    spread[channel] = squares[channel] - group.mean[channel] * group.mean[channel] * weight;
    group.spread += spread[channel];
  }
  group.widest =
      static_cast<std::size_t>(std::max_element(spread.begin(), spread.end()) - spread.begin());
  // Rounding leaves a spread to a spot that stands alone.
  if (end - begin == 1) {
    group.spread = 0;
  }
  return group;
}

// Halves the group of the largest spread until there are so many.
std::vector<Colour> MeansOfGroups(std::vector<Spot>& spots, std::size_t most) {
  std::priority_queue<Group> groups;
  groups.push(GroupOf(spots, 0, spots.size()));
  while (groups.size() < most && groups.top().spread > 0) {
    Group group = groups.top();
    groups.pop();
    const std::size_t channel = group.widest;
    const auto start = spots.begin() + static_cast<std::ptrdiff_t>(group.begin);
    const auto middle =
        std::partition(start, spots.begin() + static_cast<std::ptrdiff_t>(group.end),
                       [&](const Spot& spot) { return spot.mean[channel] <= group.mean[channel]; });
    const std::size_t half = group.begin + static_cast<std::size_t>(middle - start);
    if (half == group.begin || half == group.end) {
      group.spread = 0;
      groups.push(group);
      continue;
    }
    groups.push(GroupOf(spots, group.begin, half));
    groups.push(GroupOf(spots, half, group.end));
  }
  std::vector<Colour> means;
  for (; !groups.empty(); groups.pop()) {
    means.push_back(Rounded(groups.top().mean));
  }
  return means;
}

// The means of the spots that are nearest to each of the colours.
std::vector<Colour> Moved(const std::vector<Spot>& spots, std::vector<Colour> colours) {
  std::vector<Spot> sums(colours.size());
  NearestColour nearest(colours);
  for (const Spot& spot : spots) {
    Spot& sum = sums[nearest.Of(Rounded(spot.mean)).entry];
    for (std::size_t channel = 0; channel < 3; ++channel) {
      sum.mean[channel] += spot.mean[channel] * spot.weight;
    }
    sum.weight += spot.weight;
  }
  for (std::size_t index = 0; index < colours.size(); ++index) {
    if (const Spot& sum = sums[index]; sum.weight > 0) {
      colours[index] =
          Rounded({sum.mean[0] / sum.weight, sum.mean[1] / sum.weight, sum.mean[2] / sum.weight});
    }
  }
  return colours;
}

}  // namespace

ColourCounts::ColourCounts(Care care)
    : care_(care),
      placeBits_(care == Care::kQuick ? 13 : 15),
      counts_(std::size_t{1} << placeBits_) {}

void ColourCounts::Add(const Colour& colour, double weight) {
  Count* count = &PlaceOf(KeyOf(colour));
  if (count->weight == 0) {
    while (used_ == counts_.size() / 2) {
      Coarsen();
      count = &PlaceOf(KeyOf(colour));
    }
    used_ += count->weight == 0 ? 1 : 0;
    count->key = KeyOf(colour);
  }
  count->red += colour.red * weight;
  count->green += colour.green * weight;
  count->blue += colour.blue * weight;
  count->weight += weight;
}

void ColourCounts::Clear() {
  counts_.assign(counts_.size(), {});
  used_ = 0;
  dropped_ = 0;
}

std::uint32_t ColourCounts::KeyOf(const Colour& colour) const {
  const auto kept = [&](int value) { return static_cast<std::uint32_t>(value >> dropped_); };
  return kept(colour.red) << 16 | kept(colour.green) << 8 | kept(colour.blue);
}

ColourCounts::Count& ColourCounts::PlaceOf(std::uint32_t key) {
  std::size_t place = key * 0x9E3779B1U >> (32 - placeBits_);
  while (counts_[place].weight != 0 && counts_[place].key != key) {
    place = (place + 1) % counts_.size();
  }
  return counts_[place];
}

// Makes one count of those that are the same in all bits kept but the last.
void ColourCounts::Coarsen() {
  const std::vector<Count> finer = std::exchange(counts_, std::vector<Count>(counts_.size()));
  used_ = 0;
  ++dropped_;
  constexpr std::uint32_t kWithoutLastBits = 0x7F7F7F;
  for (const Count& old : finer) {
    if (old.weight != 0) {
      const std::uint32_t key = old.key >> 1 & kWithoutLastBits;
      Count& count = PlaceOf(key);
      used_ += count.weight == 0 ? 1 : 0;
      count = {key, count.red + old.red, count.green + old.green, count.blue + old.blue,
               count.weight + old.weight};
    }
  }
}

std::vector<Colour> ColourCounts::Choose(std::size_t most) const {
  std::vector<Spot> spots;
  for (const Count& count : counts_) {
    if (count.weight != 0) {
      spots.push_back(
          {{count.red / count.weight, count.green / count.weight, count.blue / count.weight},
           count.weight});
    }
  }
  if (spots.empty()) {
    return {};
  }
  std::vector<Colour> colours = MeansOfGroups(spots, most);
  // Each pass moves the colours less far than the one before.
  const int passes = care_ == Care::kQuick ? 2 : 4;
  for (int pass = 0; pass < passes; ++pass) {
    colours = Moved(spots, std::move(colours));
  }
  const auto number = [](const Colour& colour) {
    return colour.green << 16 | colour.red << 8 | colour.blue;
  };
  std::sort(colours.begin(), colours.end(),
            [&](const Colour& a, const Colour& b) { return number(a) < number(b); });
  colours.erase(
      std::unique(colours.begin(), colours.end(),
                  [&](const Colour& a, const Colour& b) { return number(a) == number(b); }),
      colours.end());
  return colours;
}
