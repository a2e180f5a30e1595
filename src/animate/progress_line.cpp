#include "animate/progress_line.h"

#include <algorithm>
#include <cstdio>

#include "animate/shown.h"
#include "platform/user.h"

namespace animate {
namespace {

// The last column stays free: a terminal goes on to the next line after it.
std::size_t LineWidth() {
  return static_cast<std::size_t>(std::max(platform::TerminalWidth() - 1, 0));
}

}  // namespace

std::string ProgressText(std::size_t done, std::size_t total, double seconds, std::size_t width) {
  constexpr std::size_t kWidestBar = 40;
  constexpr std::size_t kBrackets = 2;
  done = std::min(done, total);
  std::string numbers = " " + std::to_string(done) + " of " + std::to_string(total) + " frames";
  if (done != 0) {
    const double left = seconds * static_cast<double>(total - done) / static_cast<double>(done);
    numbers += ", " + ShownDuration(left) + " left";
  }
  const std::size_t needed = numbers.size() + kBrackets;
  const std::size_t room = std::min(width > needed ? width - needed : 0, kWidestBar);
  const std::size_t filled = room * done / total;
  std::string line =
      "[" + std::string(filled, '#') + std::string(room - filled, '.') + "]" + numbers;
  // Blanks wipe what is left of a longer line.
  line.resize(std::max(line.size(), width), ' ');
  return line;
}

ProgressLine::ProgressLine(std::size_t total, bool isQuiet)
    : total_(total), isShown_(!isQuiet && platform::ErrorsGoToTerminal()) {
  Show(0);
}

ProgressLine::~ProgressLine() {
  if (isShown_) {
    std::fputs(("\r" + std::string(LineWidth(), ' ') + "\r").c_str(), stderr);
  }
}

void ProgressLine::Show(std::size_t done) {
  if (isShown_) {
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start_;
    std::fputs(("\r" + ProgressText(done, total_, spent.count(), LineWidth())).c_str(), stderr);
  }
}

}  // namespace animate
