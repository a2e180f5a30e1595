// What the user is told: what was found, how far the work is, and how it ended.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "animate/sequence.h"

namespace animate {

// Prints one line on standard error.
void PrintNote(const std::string& line);

// Prints, in a few lines, which frames were found, what is missing, twice, or left out.
void PrintFindings(const Findings& found);

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

// A size in bytes for people: "123 kB".
std::string ShownBytes(std::uint64_t bytes);

}  // namespace animate
