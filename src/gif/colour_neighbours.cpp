#include "gif/colour_neighbours.h"

#include <algorithm>
#include <utility>

#include "gif/nearest_colour.h"

ColourNeighbours::ColourNeighbours(std::vector<Colour> table)
    : table_(std::move(table)), kept_(std::min<std::size_t>(16, table_.size())) {
  neighbours_.reserve(table_.size() * kept_);
  std::vector<Neighbour> others;
  for (std::size_t entry = 0; entry < table_.size(); ++entry) {
    others.clear();
    for (std::size_t other = 0; other < table_.size(); ++other) {
      others.push_back(
          {static_cast<std::uint8_t>(other), ColourDistance(table_[entry], table_[other])});
    }
    std::swap(others[0], others[entry]);
    std::partial_sort(
        others.begin() + 1, others.begin() + static_cast<std::ptrdiff_t>(kept_), others.end(),
        [](const Neighbour& a, const Neighbour& b) { return a.distance < b.distance; });
    neighbours_.insert(neighbours_.end(), others.begin(),
                       others.begin() + static_cast<std::ptrdiff_t>(kept_));
  }
}
