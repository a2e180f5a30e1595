#include "sequence/gaps.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <numeric>

namespace animate {
namespace {

std::uint64_t CountMissing(const std::vector<std::uint64_t>& differences, std::uint64_t step) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t missing = 0;
  for (const std::uint64_t difference : differences) {
    const std::uint64_t count = (difference - 1) / step;
    missing = count > kMost - missing ? kMost : missing + count;
  }
  return missing;
}

// The smallest that at least half of the sorted differences are; 0 when there is none.
std::uint64_t UsualDifference(const std::vector<std::uint64_t>& differences) {
  for (auto first = differences.begin(); first != differences.end();) {
    const auto last = std::upper_bound(first, differences.end(), *first);
    if (static_cast<std::size_t>(last - first) * 2 >= differences.size()) {
      return *first;
    }
    first = last;
  }
  return 0;
}

// Counters have their usual difference, or else the largest that all are multiples of. Where more
// numbers were missing than are there, they do not count frames.
Step StepOfCounter(const std::vector<std::uint64_t>& differences) {
  if (const std::uint64_t usual = UsualDifference(differences); usual != 0) {
    return {usual, CountMissing(differences, usual)};
  }
  std::uint64_t common = 0;
  for (const std::uint64_t difference : differences) {
    common = std::gcd(common, difference);
  }
  const std::uint64_t missing = CountMissing(differences, common);
  return missing > differences.size() ? Step() : Step{common, missing};
}

// Measures have a step when the smallest difference is most of them and divides all others.
Step StepOfMeasure(const std::vector<std::uint64_t>& differences) {
  const std::uint64_t smallest = differences.front();
  const auto end = std::upper_bound(differences.begin(), differences.end(), smallest);
  const bool isMost = static_cast<std::size_t>(end - differences.begin()) * 2 > differences.size();
  const bool dividesAll = std::all_of(
      end, differences.end(), [&](std::uint64_t difference) { return difference % smallest == 0; });
  return isMost && dividesAll ? Step{smallest, CountMissing(differences, smallest)} : Step();
}

}  // namespace

Step FindStep(NumberKind kind, std::vector<std::uint64_t> differences) {
  if (differences.empty()) {
    return {};
  }
  std::sort(differences.begin(), differences.end());
  return kind == NumberKind::kWhole ? StepOfCounter(differences) : StepOfMeasure(differences);
}

std::string TextOfNumber(NumberKind kind, const Decimal& number) {
  if (!IsTime(kind)) {
    return number.Text();
  }
  using namespace std::chrono;
  const std::string plain = number.Text();
  const std::size_t point = std::min(plain.find('.'), plain.size());
  const seconds all(std::stoll(plain.substr(0, point)));
  const auto day = duration_cast<days>(all);
  const year_month_day date(sys_days(1900y / January / 1) + day);
  const hh_mm_ss clock(all - day);
  char text[64];
  const int dateSize =
      std::snprintf(&text[0], sizeof(text), "%04d-%02u-%02u ", static_cast<int>(date.year()),
                    static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  const std::string dateText(&text[0], static_cast<std::size_t>(dateSize));
  std::snprintf(&text[0], sizeof(text), "%02d:%02d:%02d", static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  const std::string clockText = &text[0] + plain.substr(point);
  return kind == NumberKind::kDay         ? dateText.substr(0, 10)
         : kind == NumberKind::kTimeOfDay ? clockText
                                          : dateText + clockText;
}

}  // namespace animate
