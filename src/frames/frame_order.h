// Putting frames in the order of the numbers in their names.
#pragma once

#include <vector>

// For each position of the ascending order of `keys`, the index of the first key that has that
// value: entries with equal keys all give the first one of them.
std::vector<int> FirstIndexesInKeyOrder(const std::vector<int>& keys);

// One position of a list that is ordered by two numbers, and the text that belongs to it.
struct TwoKeyEntry {
  int primary = 0;
  int secondary = 0;
  int textIndex = 0;
};

// Puts entries in ascending order of the primary and then of the secondary number. Entries equal
// in both end in the order in which exchange sorts leave them: one by the primary numbers, then
// one by the secondary numbers inside each run of equal primary ones. Only the first `textCount`
// positions have a text. Returns false, with the order undefined, when the sorts would have to
// move a position without one. Takes quadratic time where entries compare equal or lack a text,
// since only the exchange sorts themselves give their order.
bool SortByTwoKeys(std::vector<TwoKeyEntry>& entries, int textCount);
