// When something that rarely helps is tried.
#pragma once

#include <algorithm>
#include <cstddef>

// Each time it is tried in vain it is let alone for longer, and when it has helped tried each time.
class Trials {
 public:
  // Whether it is tried this time.
  bool Next() {
    if (rest_ > 0) {
      --rest_;
      return false;
    }
    rest_ = nextRest_;
    nextRest_ = std::min(nextRest_ * 4, kLongestRest);
    return true;
  }

  // The last time it helped.
  void Helped() {
    rest_ = 0;
    nextRest_ = 1;
  }

 private:
  static constexpr std::size_t kLongestRest = 16;

  // For how many times it is let alone, and for how many the next time.
  std::size_t rest_ = 0;
  std::size_t nextRest_ = 1;
};
