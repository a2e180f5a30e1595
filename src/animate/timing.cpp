#include "animate/timing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>

#include "film/failure.h"
#include "film/quoted.h"

namespace animate {
namespace {

// Weeks of animation; more comes of a number that does not count frames.
constexpr std::size_t kMostTicks = 10'000'000;

Timing OneTickEach(const Findings& found, bool fillGaps) {
  Timing timing;
  auto gap = found.gaps.begin();
  for (std::size_t index = 0; index < found.frames.size(); ++index) {
    timing.shown.push_back(index);
    if (fillGaps && gap != found.gaps.end() && gap->after == index) {
      if (gap->count > kMostTicks - std::min(timing.shown.size(), kMostTicks)) {
        throw Failure("--fill-gaps: too many numbers are missing after " +
                      Quoted(found.frames[index].name));
      }
      timing.shown.insert(timing.shown.end(), gap->count, index);
      ++gap;
    }
  }
  return timing;
}

// The times of the frames in ticks, from 0 on, and the end of the last one. They are differences of
// exact numbers, and divided only once, so that half a tick is half a tick.
std::vector<long double> TicksOf(const Findings& found, const Options& options) {
  int places = options.speed->Places();
  for (const FoundFrame& frame : found.frames) {
    places = std::max(places, frame.number.Places());
  }
  const auto scaled = [&](const Decimal& number) {
    const auto value = number.Scaled(places);
    if (!value) {
      throw Failure("--speed: the numbers of the frames are too long for times");
    }
    return static_cast<long double>(*value);
  };
  const long double speed = scaled(*options.speed);
  const auto rate = static_cast<long double>(options.rate.value);
  std::vector<long double> ticks = {0};
  // Where the numbers begin again, as at a part, the time goes on.
  long double base = 0;
  long double start = scaled(found.frames.front().number);
  long double lastStep = 0;
  for (std::size_t index = 1; index < found.frames.size(); ++index) {
    const long double number = scaled(found.frames[index].number);
    if (number < scaled(found.frames[index - 1].number)) {
      base = ticks.back() + lastStep;
      start = number;
    }
    ticks.push_back(base + (number - start) * rate / speed);
    lastStep = ticks[index] > ticks[index - 1] ? ticks[index] - ticks[index - 1] : lastStep;
  }
  if (lastStep == 0) {
    throw Failure("--speed: all frames have the same number, and so no times");
  }
  ticks.push_back(ticks.back() + lastStep);
  return ticks;
}

std::string ShortText(double number) {
  char text[32];
  std::snprintf(&text[0], sizeof(text), "%.3g", number);
  return &text[0];
}

Timing ByTime(const Findings& found, const Options& options) {
  const std::vector<long double> ticks = TicksOf(found, options);
  const long double times = ticks.back() / kMostTicks;
  if (times > 1) {
    const double speed = std::strtod(options.speed->Text().c_str(), nullptr);
    // Rounded up in the last digit shown.
    const auto more = static_cast<double>(times * 1.01L);
    throw Failure(
        "--speed: at " + options.rate.text +
        " frames a second the film would have more than ten million frames; give --speed " +
        ShortText(speed * more) + " or more, or --rate " + ShortText(options.rate.value / more) +
        " or less");
  }
  Timing timing;
  for (std::size_t index = 0; index < found.frames.size(); ++index) {
    const auto end = static_cast<std::size_t>(std::llround(ticks[index + 1]));
    timing.unseen += end <= timing.shown.size() ? 1 : 0;
    timing.shown.resize(std::max(end, timing.shown.size()), index);
  }
  if (timing.unseen + 2 > found.frames.size()) {
    throw Failure(
        "--speed: at " + options.rate.text +
        " frames a second fewer than two frames would be seen; give a smaller --speed or a larger --rate");
  }
  return timing;
}

}  // namespace

Timing TimeFrames(const Findings& found, const Options& options) {
  Timing timing = options.speed ? ByTime(found, options) : OneTickEach(found, options.fillGaps);
  const double held = std::round(options.hold * options.rate.value);
  if (held > static_cast<double>(kMostTicks) - static_cast<double>(timing.shown.size())) {
    throw Failure("--hold: the film would have more than ten million frames");
  }
  if (!timing.shown.empty()) {
    timing.shown.resize(timing.shown.size() + static_cast<std::size_t>(held), timing.shown.back());
  }
  return timing;
}

}  // namespace animate
