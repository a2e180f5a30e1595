// The framework's array class: a growing list that refuses a bad index.
#pragma once

#include <cstddef>
#include <exception>
#include <utility>
#include <vector>

#include "mfc/cstring.h"

// Raised for an index outside an array and for an argument that an operation cannot work with.
class CInvalidArgException : public std::exception {
 public:
  const char* what() const noexcept override { return "invalid argument"; }
};

template <typename Item>
class CItemArray {
 public:
  int GetSize() const { return static_cast<int>(items_.size()); }
  bool IsEmpty() const { return items_.empty(); }
  void Add(Item item) { items_.push_back(std::move(item)); }
  void RemoveAll() { items_.clear(); }

  // The item at `index`, 0 to GetSize() - 1; throws CInvalidArgException for any other index.
  const Item& GetAt(int index) const {
    if (index < 0 || index >= GetSize()) {
      throw CInvalidArgException();
    }
    return items_[static_cast<std::size_t>(index)];
  }

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<Item> items_;
};

using CStringArray = CItemArray<CString>;
