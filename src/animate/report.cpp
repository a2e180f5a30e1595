#include "animate/report.h"

#include <algorithm>
#include <cstdio>

#include "animate/shown.h"
#include "film/failure.h"
#include "platform/paths.h"

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
  return platform::TextOfPath(found.frames[index].name);
}

// ", in steps of 0.05"; nothing for steps of 1.
std::string StepText(const Findings& found) {
  const std::string step = found.step ? found.step->Text() : "1";
  return step == "1" ? "" : ", in steps of " + step + (IsTime(found.kind) ? " s" : "");
}

}  // namespace

void PrintNote(const std::string& line) {
  // In one piece: formatted output goes to a Windows console character by character.
  std::fputs((line + "\n").c_str(), stderr);
}

void PrintFindings(const Findings& found) {
  const std::size_t last = found.frames.size() - 1;
  PrintNote("frames: " + FrameName(found, 0) + " to " + FrameName(found, last) + ", " +
            std::to_string(found.frames.size()) + " frames");
  std::vector<std::string> items;
  std::size_t missing = 0;
  for (const Gap& gap : found.gaps) {
    missing += gap.count;
    items.push_back((gap.count == 1 ? gap.first : gap.first + " to " + gap.last) + " (after " +
                    FrameName(found, gap.after) + ")");
  }
  if (missing != 0) {
    PrintNote("missing: " + Count(missing, "number", "numbers") + StepText(found) + ": " +
              Joined(items));
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

void PrintFailure(const std::string& reason) {
  PrintNote("TessaraAnimate: " + reason);
}

void PrintText(const std::string& text) {
  std::fputs(text.c_str(), stdout);
}

void PrintList(const std::filesystem::path& folder, const std::vector<FoundFrame>& frames,
               const std::vector<std::size_t>& shown) {
  for (const std::size_t index : shown) {
    PrintText(platform::TextOfPath(folder / frames[index].name) + "\n");
  }
}

void PrintPlan(const Plan& plan) {
  const Film& film = plan.film;
  const std::size_t held = film.shown.size() - film.frames.size();
  PrintNote("making: " + platform::TextOfPath(plan.output) + ", " +
            std::to_string(film.shown.size()) + " frames" +
            (held == 0 ? "" : " (" + std::to_string(held) + " of them held)") + " at " +
            film.rate.text + " frames a second, " + ShownSize(film.size));
  if (film.hasSeveralSizes) {
    PrintNote("sizes: the frames have several; all are brought to " + ShownSize(film.size) +
              " with their shape kept");
  }
}

void PrintResult(const Plan& plan, const Measurement& measured, std::uint64_t bytes) {
  char length[32];
  std::snprintf(&length[0], sizeof(length), "%.1f s", measured.length);
  PrintText(platform::TextOfPath(plan.output.filename()) + ": " + std::to_string(measured.frames) +
            " frames, " + &length[0] + " at " + plan.film.rate.text + " frames a second, " +
            ShownSize(measured.size) + ", " + ShownBytes(bytes) + "\n");
}

void FinishOutput() {
  if (std::fflush(stdout) != 0) {
    throw Failure("standard output cannot be written");
  }
}

}  // namespace animate
