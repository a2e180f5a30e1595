#include "gif/film_colours.h"

#include <algorithm>

#include "gif/gif_colours.h"
#include "gif/sampled_places.h"

void FilmColours::Add(std::span<const Colour> picture) {
  constexpr std::size_t kEnough = 30000;
  if (AreFew()) {
    AddExactly(picture);
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
  before_.assign(picture.begin(), picture.end());
  ++pictures_;
}

void FilmColours::AddExactly(std::span<const Colour> picture) {
  GifColour last = kTransparent;
  for (const Colour& pixel : picture) {
    const GifColour colour = ToGifColour(pixel);
    if (colour != last && colour != kTransparent && AreFew()) {
      exact_.insert(colour);
    }
    last = colour;
  }
}

void FilmColours::CountChanges(std::span<const Colour> picture) {
  changes_.resize(picture.size());
  for (std::size_t place = 0; place < before_.size(); ++place) {
    changes_[place] += ToGifColour(picture[place]) == ToGifColour(before_[place]) ? 0 : 1;
  }
}

std::vector<Colour> FilmColours::Table() const {
  std::vector<Colour> table;
  if (AreFew()) {
    for (const GifColour colour : exact_) {
      table.push_back({static_cast<std::uint8_t>(colour), static_cast<std::uint8_t>(colour >> 8),
                       static_cast<std::uint8_t>(colour >> 16)});
    }
    std::sort(table.begin(), table.end(),
              [](const Colour& a, const Colour& b) { return ToGifColour(a) < ToGifColour(b); });
  } else {
    table = counts_.Choose(kMost);
  }
  if (table.empty()) {
    table.emplace_back();
  }
  return table;
}
