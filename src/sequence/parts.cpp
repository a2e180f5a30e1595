#include "sequence/parts.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

namespace animate {
namespace {

std::size_t DistinctKeys(const Column& column) {
  if (std::is_sorted(column.keys.begin(), column.keys.end()) &&
      column.keys.front() == column.keys.back()) {
    return 1;
  }
  std::vector<std::int64_t> keys = column.keys;
  std::sort(keys.begin(), keys.end());
  return static_cast<std::size_t>(std::unique(keys.begin(), keys.end()) - keys.begin());
}

// Rows' keys side by side, so that rows are compared in one place of the memory.
class KeyTable {
 public:
  KeyTable(const std::vector<Column>& columns, const std::vector<std::size_t>& chosen,
           std::size_t rows)
      : width_(chosen.size()), keys_(rows * chosen.size()) {
    for (std::size_t place = 0; place < width_; ++place) {
      for (std::size_t row = 0; row < rows; ++row) {
        keys_[row * width_ + place] = columns[chosen[place]].keys[row];
      }
    }
  }

  // Negative, zero or positive as the left row comes before the right, with it or behind.
  int Compare(std::size_t left, std::size_t right) const {
    for (std::size_t place = 0; place < width_; ++place) {
      const std::int64_t a = keys_[left * width_ + place];
      const std::int64_t b = keys_[right * width_ + place];
      if (a != b) {
        return a < b ? -1 : 1;
      }
    }
    return 0;
  }

 private:
  std::size_t width_;
  std::vector<std::int64_t> keys_;
};

// Numbers the rows by the keys of the tellers; leaves one part when no counter comes again.
void FindParts(Arrangement& made, const std::vector<Column>& columns) {
  const std::vector<std::int64_t>& counter = columns[made.counter].keys;
  const std::size_t rows = counter.size();
  made.part.assign(rows, 0);
  const KeyTable tellers(columns, made.tellers, rows);
  std::vector<std::uint32_t> order(rows);
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [&](std::uint32_t left, std::uint32_t right) {
    return tellers.Compare(left, right) < 0;
  });
  for (std::size_t index = 1; index < rows; ++index) {
    made.part[order[index]] = made.part[order[index - 1]] +
                              (tellers.Compare(order[index - 1], order[index]) == 0 ? 0 : 1);
  }
  made.parts = made.part[order.back()] + 1;
  std::vector<std::pair<std::int64_t, std::uint32_t>> values(rows);
  for (std::size_t row = 0; row < rows; ++row) {
    values[row] = {counter[row], made.part[row]};
  }
  std::sort(values.begin(), values.end());
  const bool comesAgain =
      std::adjacent_find(values.begin(), values.end(), [](const auto& left, const auto& right) {
        return left.first == right.first && left.second != right.second;
      }) != values.end();
  if (!comesAgain) {
    made.part.assign(rows, 0);
    made.parts = 1;
  }
}

// Where the numbers in front change with every frame, it is the counter alone that may skip some.
bool IsCountedAlone(const Arrangement& made, const Column& counter) {
  return made.parts == 1 && made.stretch.back() + 1 == made.order.size() &&
         std::is_sorted(made.order.begin(), made.order.end(),
                        [&](std::uint32_t left, std::uint32_t right) {
                          return counter.keys[left] < counter.keys[right];
                        });
}

void FindStretches(Arrangement& made, const std::vector<Column>& columns) {
  made.stretch.assign(made.order.size(), 0);
  for (std::size_t index = 1; index < made.order.size(); ++index) {
    const std::uint32_t before = made.order[index - 1];
    const std::uint32_t row = made.order[index];
    const bool goesOn =
        made.part[before] == made.part[row] &&
        std::all_of(columns.begin(), columns.begin() + static_cast<std::ptrdiff_t>(made.counter),
                    [&](const Column& column) { return column.keys[before] == column.keys[row]; });
    made.stretch[index] = made.stretch[index - 1] + (goesOn ? 0 : 1);
  }
  if (IsCountedAlone(made, columns[made.counter])) {
    made.stretch.assign(made.order.size(), 0);
  }
}

}  // namespace

Arrangement Arrange(const std::vector<Column>& columns,
                    const std::vector<std::string_view>& names) {
  Arrangement made;
  std::vector<std::size_t> changing;
  std::size_t most = 0;
  for (std::size_t index = 0; index < columns.size(); ++index) {
    const std::size_t distinct = DistinctKeys(columns[index]);
    if (distinct > 1) {
      changing.push_back(index);
    }
    if (distinct >= most) {
      most = distinct;
      made.counter = index;
    }
  }
  made.byNumbers.resize(names.size());
  std::iota(made.byNumbers.begin(), made.byNumbers.end(), 0);
  const KeyTable keys(columns, changing, names.size());
  std::sort(made.byNumbers.begin(), made.byNumbers.end(),
            [&](std::uint32_t left, std::uint32_t right) {
              const int compared = keys.Compare(left, right);
              return compared != 0 ? compared < 0 : names[left] < names[right];
            });
  for (const std::size_t index : changing) {
    if (index != made.counter && !(IsTime(columns[index].kind) && index < made.counter)) {
      made.tellers.push_back(index);
    }
  }
  FindParts(made, columns);
  made.order = made.byNumbers;
  std::stable_sort(
      made.order.begin(), made.order.end(),
      [&](std::uint32_t left, std::uint32_t right) { return made.part[left] < made.part[right]; });
  FindStretches(made, columns);
  return made;
}

}  // namespace animate
