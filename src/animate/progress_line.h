// How far the work is.
#pragma once

#include <chrono>
#include <cstddef>

namespace animate {

// One line on standard error that is rewritten while the work goes on: a bar, how many frames are
// done, and the time that is left. It prints nothing when standard error is no terminal.
class ProgressLine {
 public:
  // `total` is the number of frames; nothing is printed when `isQuiet`.
  ProgressLine(std::size_t total, bool isQuiet);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(std::size_t done);

 private:
  std::size_t total_ = 0;
  bool isShown_ = false;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace animate
