#include "gif/film_colours.h"

#include <algorithm>
#include <utility>

#include "gif/colour.h"
#include "gif/lossy_lzw_encoder.h"
#include "gif/nearest_colour.h"
#include "gif/sampled_places.h"

namespace {

Colour ToColour(GifColour colour) {
  return {static_cast<std::uint8_t>(colour), static_cast<std::uint8_t>(colour >> 8),
          static_cast<std::uint8_t>(colour >> 16)};
}

}  // namespace

std::optional<GifScreen> FilmColours::Add(std::span<const Colour> picture) {
  constexpr std::size_t kEnough = 30000;
  std::optional<GifScreen> entries = AreFew() ? few_.EntriesOf(picture) : std::nullopt;
  if (entries && mayLoseFew_) {
    for (const std::uint8_t entry : *entries) {
      ++pixelsOfFew_[entry];
    }
    CountTurns(picture);
  }
  GifColour last = kTransparent;
  // How many of the pixels taken follow each other with the last colour, and one of them.
  int run = 0;
  std::size_t at = 0;
  const auto count = [&] {
    if (last != kTransparent) {
      counts_.Add(picture[at], run);
    }
  };
  const auto seed = static_cast<std::uint32_t>(pictures_);
  ForSampledPlaces(picture.size(), kEnough, seed, [&](std::size_t place) {
    const GifColour colour = ToGifColour(picture[place]);
    if (colour == last) {
      ++run;
      return;
    }
    count();
    last = colour;
    run = 1;
    at = place;
  });
  count();
  CountChanges(picture);
  ++pictures_;
  return entries;
}

void FilmColours::CountTurns(std::span<const Colour> picture) {
  std::uint64_t last = 0;
  for (std::size_t place = 0; place < before_.size(); ++place) {
    const GifColour before = ToGifColour(before_[place]);
    const GifColour now = ToGifColour(picture[place]);
    const std::uint64_t turn = before == now ? 0 : std::uint64_t{before} << 32U | now;
    if (turn != last && turn != 0) {
      ++turns_[turn];
    }
    last = turn;
  }
}

// Makes the picture the one before the next, too.
void FilmColours::CountChanges(std::span<const Colour> picture) {
  // Much of many pictures is as it was, and bytes are compared fast.
  constexpr std::size_t kAtOnce = 1024;
  if (before_.empty()) {
    before_.assign(picture.begin(), picture.end());
    changes_.resize(picture.size());
    return;
  }
  for (std::size_t begin = 0; begin < picture.size(); begin += kAtOnce) {
    const std::size_t count = std::min(kAtOnce, picture.size() - begin);
    const std::span<const Colour> now = picture.subspan(begin, count);
    const std::span<Colour> before = std::span(before_).subspan(begin, count);
    if (AreSame(now, before)) {
      continue;
    }
    for (std::size_t place = 0; place < count; ++place) {
      changes_[begin + place] += ToGifColour(now[place]) == ToGifColour(before[place]) ? 0 : 1;
    }
    std::copy(now.begin(), now.end(), before.begin());
  }
}

std::vector<Colour> FilmColours::Table() const {
  std::vector<Colour> table;
  if (AreFew()) {
    table.assign(Few().begin() + 1, Few().end());
    std::sort(table.begin(), table.end(),
              [](const Colour& a, const Colour& b) { return ToGifColour(a) < ToGifColour(b); });
  } else {
    table = counts_.Choose(FewColours::kMost);
  }
  if (table.empty()) {
    table.emplace_back();
  }
  return table;
}

std::vector<Colour> FilmColours::TableFor(float bitPrice) const {
  std::vector<Colour> table = Table();
  if (!AreFew() || !mayLoseFew_) {
    return table;
  }
  std::size_t tooFew = 0;
  for (std::size_t enough = table.size(); enough - tooFew > 1;) {
    const std::size_t middle = (tooFew + enough) / 2;
    std::vector<Colour> fewer = counts_.Choose(middle);
    if (IsWorth(fewer, bitPrice)) {
      enough = middle;
      table = std::move(fewer);
    } else {
      tooFew = middle;
    }
  }
  return table;
}

// Each row of pixels that need not change then spares so much, and no pixel may be worse by more
// than a code is worth.
bool FilmColours::IsWorth(const std::vector<Colour>& table, float bitPrice) const {
  constexpr float kBitsOfTurn = 6;
  if (table.empty()) {
    return false;
  }
  NearestColour nearest(table);
  double error = 0;
  for (std::size_t entry = 1; entry < Few().size(); ++entry) {
    const int distance = nearest.Of(Few()[entry]).distance;
    if (static_cast<float>(distance) > kBitsOfCode * bitPrice) {
      return false;
    }
    error += static_cast<double>(distance) * static_cast<double>(pixelsOfFew_[entry]);
  }
  double spared = 0;
  for (const auto& [turn, times] : turns_) {
    const auto before = static_cast<GifColour>(turn >> 32U);
    const auto now = static_cast<GifColour>(turn);
    if (before != kTransparent && now != kTransparent &&
        nearest.Of(ToColour(before)).entry == nearest.Of(ToColour(now)).entry) {
      spared += static_cast<double>(times);
    }
  }
  return error <= spared * static_cast<double>(kBitsOfTurn * bitPrice);
}
