#include "frames/frame_order.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
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
  std::vector<int> order(keys.size());
  std::iota(order.begin(), order.end(), 0);
  const auto keyOf = [&keys](int index) { return keys[static_cast<std::size_t>(index)]; };
  std::stable_sort(order.begin(), order.end(),
                   [&keyOf](int a, int b) { return keyOf(a) < keyOf(b); });
  for (std::size_t k = 1; k < order.size(); ++k) {
    if (keyOf(order[k]) == keyOf(order[k - 1])) {
      order[k] = order[k - 1];
    }
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
