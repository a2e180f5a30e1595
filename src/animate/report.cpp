#include "animate/report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "platform/file_system.h"
#include "platform/user.h"

namespace animate {
namespace {

constexpr std::size_t kMostItems = 8;

std::string Count(std::size_t count, const char* one, const char* more) {
  return std::to_string(count) + " " + (count == 1 ? one : more);
}

// The items of a list, the first of them when there are many.
std::string Joined(const std::vector<std::string>& items) {
  std::string text;
  for (std::size_t index = 0; index < std::min(items.size(), kMostItems); ++index) {
    text += (index == 0 ? "" : ", ") + items[index];
  }
  if (items.size() > kMostItems) {
    text += " and " + std::to_string(items.size() - kMostItems) + " more";
  }
  return text;
}

std::string FrameName(const Findings& found, std::size_t index) {
  return platform::TextOfPath(found.sequence[index].name);
}

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

void PrintNote(const std::string& line) {
  // In one piece: formatted output goes to a Windows console character by character.
  std::fputs((line + "\n").c_str(), stderr);
}

void PrintFindings(const Findings& found) {
  const std::size_t last = found.sequence.size() - 1;
  PrintNote("frames: " + FrameName(found, 0) + " to " + FrameName(found, last) + ", " +
            std::to_string(found.sequence.size()) + " frames");
  std::vector<std::string> items;
  std::size_t missing = 0;
  for (const Gap& gap : found.gaps) {
    missing += gap.count;
    items.push_back((gap.count == 1 ? gap.first : gap.first + " to " + gap.last) + " (after " +
                    FrameName(found, gap.after) + ")");
  }
  if (missing != 0) {
    const std::string stride =
        found.stride == 1 ? "" : ", in steps of " + std::to_string(found.stride);
    PrintNote("missing: " + Count(missing, "number", "numbers") + stride + ": " + Joined(items));
  }
  items.clear();
  for (const std::size_t index : found.doubles) {
    items.push_back(FrameName(found, index) + " (after " + FrameName(found, index - 1) + ")");
  }
  if (!items.empty()) {
    PrintNote("twice: " + Count(items.size(), "number", "numbers") +
              ", each is a frame: " + Joined(items));
  }
  if (!found.leftOut.empty()) {
    PrintNote("left out: " + Joined(found.leftOut));
  }
}

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

std::string ShownBytes(std::uint64_t bytes) {
  static constexpr const char* kUnits[] = {"bytes", "kB", "MB", "GB", "TB"};
  auto size = static_cast<double>(bytes);
  std::size_t unit = 0;
  for (; size >= 999.5 && unit + 1 < std::size(kUnits); ++unit) {
    size /= 1000;
  }
  char text[32];
  std::snprintf(&text[0], sizeof(text), size < 9.95 && unit > 1 ? "%.1f %s" : "%.0f %s", size,
                kUnits[unit]);
  return &text[0];
}

}  // namespace animate
