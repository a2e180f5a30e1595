#include "animate/proof.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <string>

#include "animate/failure.h"
#include "animate/movie_index.h"

namespace animate {
namespace {

// What a file was found to hold, and what the converter's lines about its packets amount to.
struct Packets {
  std::size_t count = 0;
  long long first = std::numeric_limits<long long>::max();
  long long last = std::numeric_limits<long long>::min();
  // The unit of the times, in seconds.
  double tick = 0;
  Size size;

  void Take(const std::string& line) {
    long long numerator = 0;
    long long denominator = 0;
    long long decoded = 0;
    long long shown = 0;
    if (std::sscanf(line.c_str(), "#tb 0: %lld/%lld", &numerator, &denominator) == 2) {
      tick = static_cast<double>(numerator) / static_cast<double>(denominator);
    } else if (std::sscanf(line.c_str(), "#dimensions 0: %dx%d", &size.width, &size.height) != 2 &&
               std::sscanf(line.c_str(), "0, %lld, %lld,", &decoded, &shown) == 2) {
      ++count;
      first = std::min(first, shown);
      last = std::max(last, shown);
    }
  }
};

std::string Shown(double seconds) {
  char text[32];
  std::snprintf(&text[0], sizeof(text), "%.3f s", seconds);
  return &text[0];
}

// The converter takes longer to start than all other work around it takes, so the usual kind of
// file is read here.
Packets ReadBack(const Converter& converter, const Plan& plan, const std::filesystem::path& target,
                 const std::filesystem::path& folder) {
  Packets packets;
  if (plan.format->demuxer == "mov") {
    const std::optional<MovieIndex> index = ReadMovieIndex(target);
    if (!index) {
      throw Failure("the finished file is not whole");
    }
    return {index->frames, 0, index->span, index->tick, index->size};
  }
  const ConverterResult result =
      converter.Run({"-f", plan.format->demuxer, "-i", platform::ArgumentOfPath(target), "-map",
                     "0:v:0", "-c", "copy", "-copyinkf", "-f", "framecrc", "pipe:1"},
                    folder, [&](const std::string& line) { packets.Take(line); });
  if (!result.failure.empty()) {
    throw Failure("the finished file cannot be read back: " + result.failure);
  }
  return packets;
}

}  // namespace

Proven Prove(const Converter& converter, const Plan& plan, const std::filesystem::path& target,
             const std::filesystem::path& folder) {
  const Packets packets = ReadBack(converter, plan, target, folder);
  const std::size_t planned = plan.shown.size();
  if (packets.count != planned) {
    throw Failure("the finished file has " + std::to_string(packets.count) + " frames instead of " +
                  std::to_string(planned));
  }
  if (packets.size != plan.size) {
    throw Failure("the finished file has pictures of another size");
  }
  // From the first frame to the last. A container with a clock of its own rounds the times to it;
  // one that counts frames has the rate, some in steps.
  constexpr double kCoarsestClock = 0.01;
  constexpr double kRounding = 0.0005;
  const double span = static_cast<double>(packets.last - packets.first) * packets.tick;
  const double wanted = static_cast<double>(planned - 1) / plan.rate;
  const double allowed =
      (packets.tick <= kCoarsestClock ? std::min(packets.tick, 0.5 / plan.rate) : 0) +
      wanted * (kRounding + plan.format->rateStep / plan.rate);
  if (!(std::abs(span - wanted) <= allowed)) {
    throw Failure("the finished file takes " + Shown(span) +
                  " from the first frame to the last instead of " + Shown(wanted));
  }
  return {packets.count, static_cast<double>(planned) / plan.rate, packets.size};
}

}  // namespace animate
