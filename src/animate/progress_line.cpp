#include "animate/progress_line.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "platform/user.h"

namespace animate {
namespace {

std::string Duration(double seconds) {
  const long whole = std::lround(std::min(seconds, 359999.0));
  char text[32];
  if (whole >= 3600) {
    std::snprintf(&text[0], sizeof(text), "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60,
                  whole % 60);
  } else {
    std::snprintf(&text[0], sizeof(text), "%ld:%02ld", whole / 60, whole % 60);
  }
  return &text[0];
}

}  // namespace

ProgressLine::ProgressLine(std::size_t total, bool isQuiet)
    : total_(total), isShown_(!isQuiet && platform::ErrorsGoToTerminal()) {
  Show(0);
}

ProgressLine::~ProgressLine() {
  if (isShown_) {
    std::fprintf(stderr, "\r%*s\r", platform::TerminalWidth() - 1, "");
  }
}

void ProgressLine::Show(std::size_t done) {
  if (!isShown_) {
    return;
  }
  done = std::min(done, total_);
  std::string numbers = " " + std::to_string(done) + " of " + std::to_string(total_) + " frames";
  if (done != 0) {
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start_;
    numbers +=
        ", " +
        Duration(spent.count() * static_cast<double>(total_ - done) / static_cast<double>(done)) +
        " left";
  }
  constexpr int kWidestBar = 40;
  const int room = platform::TerminalWidth() - 1 - 2 - static_cast<int>(numbers.size());
  const auto width = static_cast<std::size_t>(std::clamp(room, 0, kWidestBar));
  const std::size_t filled = width * done / total_;
  std::string bar =
      "[" + std::string(filled, '#') + std::string(width - filled, '.') + "]" + numbers;
  // Blanks wipe what is left of a longer line.
  bar.resize(std::max<std::size_t>(bar.size(), platform::TerminalWidth() - 1U), ' ');
  std::fputs(("\r" + bar).c_str(), stderr);
}

}  // namespace animate
