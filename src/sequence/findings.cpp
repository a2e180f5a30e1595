#include "sequence/findings.h"

#include <algorithm>
#include <limits>

namespace animate {
namespace {

// From one frame to the next, how the counter grows.
struct Growth {
  std::size_t after = 0;
  std::int64_t from = 0;
  std::uint64_t difference = 0;
};

std::vector<Growth> FindGrowths(const std::vector<FoundFrame>& frames, int places) {
  std::vector<Growth> growths;
  std::optional<std::int64_t> before;
  for (std::size_t index = 0; index < frames.size(); ++index) {
    const std::optional<std::int64_t> number = frames[index].number.Scaled(places);
    if (before && number && *before < *number &&
        frames[index].stretch == frames[index - 1].stretch) {
      growths.push_back(
          {index - 1, *before,
           static_cast<std::uint64_t>(*number) - static_cast<std::uint64_t>(*before)});
    }
    before = number;
  }
  return growths;
}

}  // namespace

void FindGaps(Findings& findings) {
  const std::vector<FoundFrame>& frames = findings.frames;
  findings.gaps.clear();
  findings.step.reset();
  findings.doubles.clear();
  int places = 0;
  for (std::size_t index = 0; index < frames.size(); ++index) {
    places = std::max(places, frames[index].number.Places());
    if (frames[index].isDouble) {
      findings.doubles.push_back(index);
    }
  }
  const std::vector<Growth> growths = FindGrowths(frames, places);
  std::vector<std::uint64_t> differences;
  differences.reserve(growths.size());
  for (const Growth& growth : growths) {
    differences.push_back(growth.difference);
  }
  const std::uint64_t step = FindStep(findings.kind, std::move(differences)).size;
  if (step == 0 || step > std::numeric_limits<std::int64_t>::max()) {
    return;
  }
  findings.step = Decimal(static_cast<std::int64_t>(step), places);
  for (const Growth& growth : growths) {
    if (const std::uint64_t count = (growth.difference - 1) / step;
        growth.difference / step >= 2 && count > 0) {
      const auto textOf = [&](std::uint64_t steps) {
        const auto number =
            static_cast<std::int64_t>(static_cast<std::uint64_t>(growth.from) + steps * step);
        return TextOfNumber(findings.kind, Decimal(number, places));
      };
      findings.gaps.push_back({growth.after, count, textOf(1), textOf(count)});
    }
  }
}

}  // namespace animate
