#include "gif/film_colours.h"

#include <algorithm>

#include "gif/gif_colours.h"

void FilmColours::Add(std::span<const Colour> picture) {
  if (pictures_ == 0) {
    changes_.assign(picture.size(), 0);
  }
  GifColour last = kTransparent;
  // How many pixels of the last colour follow each other.
  int run = 0;
  const auto count = [&](std::size_t end) {
    if (last != kTransparent) {
      counts_.Add(picture[end - 1], run);
    }
  };
  for (std::size_t place = 0; place < picture.size(); ++place) {
    const GifColour colour = ToGifColour(picture[place]);
    if (pictures_ > 0 && colour != ToGifColour(before_[place])) {
      ++changes_[place];
    }
    if (colour == last) {
      ++run;
      continue;
    }
    count(place);
    if (colour != kTransparent && AreFew()) {
      exact_.insert(colour);
    }
    last = colour;
    run = 1;
  }
  count(picture.size());
  before_.assign(picture.begin(), picture.end());
  ++pictures_;
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
