#include "frames/frame_order.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace {

using Entries = std::vector<TwoKeyEntry>;

bool IsBefore(const TwoKeyEntry& a, const TwoKeyEntry& b) {
  return std::tie(a.primary, a.secondary) < std::tie(b.primary, b.secondary);
}

bool IsEqual(const TwoKeyEntry& a, const TwoKeyEntry& b) {
  return std::tie(a.primary, a.secondary) == std::tie(b.primary, b.secondary);
}

// Exchange-sorts the positions from `first` up to `end` by one of the numbers. Returns false at
// the first swap of a position from `textCount` on.
bool ExchangeSort(Entries& entries, std::size_t first, std::size_t end, int TwoKeyEntry::*key,
                  std::size_t textCount) {
  for (std::size_t p = first; p + 1 < end; ++p) {
    for (std::size_t q = p + 1; q < end; ++q) {
      if (entries[p].*key > entries[q].*key) {
        if (q >= textCount) {
          return false;
        }
        std::swap(entries[p], entries[q]);
      }
    }
  }
  return true;
}

}  // namespace

std::vector<int> FirstIndexesInKeyOrder(const std::vector<int>& keys) {
  std::vector<std::pair<int, int>> keysWithIndexes;
  keysWithIndexes.reserve(keys.size());
  for (const int key : keys) {
    keysWithIndexes.emplace_back(key, static_cast<int>(keysWithIndexes.size()));
  }
  std::sort(keysWithIndexes.begin(), keysWithIndexes.end());
  std::vector<int> order;
  order.reserve(keys.size());
  for (std::size_t k = 0; k < keys.size(); ++k) {
    const auto& [key, index] = keysWithIndexes[k];
    const bool repeated = k > 0 && key == keysWithIndexes[k - 1].first;
    order.push_back(repeated ? order.back() : index);
  }
  return order;
}

bool SortByTwoKeys(std::vector<TwoKeyEntry>& entries, int textCount) {
  const auto texts = static_cast<std::size_t>(textCount);
  if (texts == entries.size()) {
    Entries sorted = entries;
    std::sort(sorted.begin(), sorted.end(), IsBefore);
    if (std::adjacent_find(sorted.begin(), sorted.end(), IsEqual) == sorted.end()) {
      entries = std::move(sorted);
      return true;
    }
  }
  if (!ExchangeSort(entries, 0, entries.size(), &TwoKeyEntry::primary, texts)) {
    return false;
  }
  std::size_t start = 0;
  while (start < entries.size()) {
    std::size_t end = start + 1;
    while (end < entries.size() && entries[end].primary == entries[start].primary) {
      ++end;
    }
    if (!ExchangeSort(entries, start, end, &TwoKeyEntry::secondary, texts)) {
      return false;
    }
    start = end;
  }
  return true;
}
