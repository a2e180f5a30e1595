// CStringArray: the framework's growing list of texts, which refuses a bad index.
#pragma once

#include <cstddef>
#include <exception>
#include <utility>
#include <vector>

#include "text/cstring.h"

// Raised for an index outside an array and for an argument that an operation cannot work with.
class CInvalidArgException : public std::exception {
 public:
  const char* what() const noexcept override { return "invalid argument"; }
};

class CStringArray {
 public:
  int GetSize() const { return static_cast<int>(texts_.size()); }
  bool IsEmpty() const { return texts_.empty(); }
  void Add(CString text) { texts_.push_back(std::move(text)); }
  void RemoveAll() { texts_.clear(); }

  // The text at `index`, 0 to GetSize() - 1; throws CInvalidArgException for any other index.
  const CString& GetAt(int index) const {
    if (index < 0 || index >= GetSize()) {
      throw CInvalidArgException();
    }
    return texts_[static_cast<std::size_t>(index)];
  }

  auto begin() const { return texts_.begin(); }
  auto end() const { return texts_.end(); }

 private:
  std::vector<CString> texts_;
};
