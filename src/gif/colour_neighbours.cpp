#include "gif/colour_neighbours.h"

#include <algorithm>
#include <utility>

#include "gif/in_parts.h"
#include "gif/nearest_colour.h"

ColourNeighbours::ColourNeighbours(std::vector<Colour> table)
    : table_(std::move(table)),
      kept_(std::min<std::size_t>(16, table_.size())),
      neighbours_(table_.size() * kept_) {
  constexpr std::size_t kEntriesOfPart = 64;
  const std::size_t parts = table_.size() / kEntriesOfPart + 1;
  InParts(parts, [&](std::size_t, std::size_t part) {
    const std::size_t end = BeginOf(part + 1, parts, table_.size());
    for (std::size_t entry = BeginOf(part, parts, table_.size()); entry < end; ++entry) {
      Fill(entry);
    }
  });
}

void ColourNeighbours::Fill(std::size_t entry) {
  std::vector<Neighbour> others;
  others.reserve(table_.size());
  for (std::size_t other = 0; other < table_.size(); ++other) {
    others.push_back(
        {static_cast<std::uint8_t>(other), ColourDistance(table_[entry], table_[other])});
  }
  std::swap(others[0], others[entry]);
  const auto kept = others.begin() + static_cast<std::ptrdiff_t>(kept_);
  std::partial_sort(others.begin() + 1, kept, others.end(),
                    [](const Neighbour& a, const Neighbour& b) { return a.distance < b.distance; });
  std::copy(others.begin(), kept, neighbours_.begin() + static_cast<std::ptrdiff_t>(entry * kept_));
}
