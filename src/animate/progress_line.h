// How far the work is.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace animate {

// The line that says that `done` of `total` frames are done after `seconds`: a bar, the two
// numbers, and the time that is left at this pace. As wide as `width` characters, or as the numbers
// need.
std::string ProgressText(std::size_t done, std::size_t total, double seconds, std::size_t width);

// The line on standard error, rewritten while the work goes on. It prints nothing when standard
// error is no terminal.
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
