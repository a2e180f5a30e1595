#include "converter/proof.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "converter/encoding.h"
#include "converter/recipe.h"
#include "converter/small_pictures.h"
#include "film/failure.h"
#include "film/gif_clock.h"
#include "platform/paths.h"

namespace animate {
namespace {

std::string Shown(double seconds) {
  char text[32];
  std::snprintf(&text[0], sizeof(text), "%.3f s", seconds);
  return &text[0];
}

// Reads the file once: its packets as they are, and its pictures into the file `seen` in `folder`.
Packets ReadBack(const Converter& converter, const Film& film, const std::filesystem::path& target,
                 const std::filesystem::path& folder, const std::string& seen) {
  Packets packets;
  const Words input = Joined(converter.Threads(), DecoderWords(film),
                             Words{"-i", platform::ArgumentOfPath(target)});
  const Words list = {"-map", "0:v:0", "-c", "copy", "-copyinkf", "-f", "framecrc", "pipe:1"};
  const Words pictures = {"-map", "0:v:0",    "-vsync", "0",        "-vf", SeenInSmall(film),
                          "-c:v", "rawvideo", "-f",     "rawvideo", seen};
  const auto read = converter.ReadLines(Joined(input, list, pictures), folder,
                                        [&](const std::string& line) { packets.Take(line); });
  if (!read) {
    throw Failure("the finished file cannot be read back: " + read.Reason());
  }
  return packets;
}

// Whether equal pictures, one after the other, may be one in the file.
bool JoinsEqualPictures(const Film& film) {
  return RecipeFor(*film.format).hasPalette;
}

[[noreturn]] void RefuseLength(double found, double wanted, const std::string& what) {
  throw Failure("the finished file takes " + Shown(found) + what + " instead of " + Shown(wanted));
}

// Throws a Failure unless the pictures follow each other from 0 to the end of the film.
void CheckGifTimes(const Film& film, const Packets& packets) {
  constexpr double kHundredth = 0.01;
  const long long end = GifTime(film.shown.size(), film.rate);
  const long long found = packets.last + packets.lastDuration;
  if (packets.first != 0 || !std::is_sorted(packets.times.begin(), packets.times.end()) ||
      packets.tick != kHundredth || found != end) {
    RefuseLength(static_cast<double>(found) * packets.tick, static_cast<double>(end) * kHundredth,
                 "");
  }
}

}  // namespace

Measurement Prove(const Converter& converter, const Film& film, const std::filesystem::path& target,
                  const std::filesystem::path& folder) {
  const std::string seen = "seen.rgb";
  const Packets packets = ReadBack(converter, film, target, folder, seen);
  Measurement measured = Measured(film, packets);
  measured.likeness = ComparePictures(
      film, folder / kPlannedPictures, folder / seen,
      JoinsEqualPictures(film) ? PairsByTime(film, packets.times) : InOrder(packets.count));
  return measured;
}

Measurement Measured(const Film& film, const Packets& packets) {
  const std::size_t planned = film.shown.size();
  if (packets.size != film.size) {
    throw Failure("the finished file has pictures of another size");
  }
  if (JoinsEqualPictures(film)) {
    CheckGifTimes(film, packets);
    return {planned, static_cast<double>(planned) / film.rate.value, packets.size};
  }
  if (packets.count != planned) {
    throw Failure("the finished file has " + std::to_string(packets.count) + " frames instead of " +
                  std::to_string(planned));
  }
  // From the first frame to the last. A container with a clock of its own rounds the times to it;
  // one that counts frames has the rate, some in steps.
  constexpr double kCoarsestClock = 0.01;
  constexpr double kRounding = 0.0005;
  const double span = static_cast<double>(packets.last - packets.first) * packets.tick;
  const double wanted = static_cast<double>(planned - 1) / film.rate.value;
  const double allowed =
      (packets.tick <= kCoarsestClock ? std::min(packets.tick, 0.5 / film.rate.value) : 0) +
      wanted * (kRounding + film.format->rateStep / film.rate.value);
  if (!(std::abs(span - wanted) <= allowed)) {
    RefuseLength(span, wanted, " from the first frame to the last");
  }
  return {packets.count, static_cast<double>(planned) / film.rate.value, packets.size};
}

std::vector<Pair> PairsByTime(const Film& film, const std::vector<long long>& times) {
  const long long end = GifTime(film.shown.size(), film.rate);
  std::vector<Pair> pairs;
  Pair now;
  while (now.planned < film.shown.size() && now.seen < times.size()) {
    pairs.push_back(now);
    const long long nextPlanned = GifTime(now.planned + 1, film.rate);
    const long long nextSeen = now.seen + 1 < times.size() ? times[now.seen + 1] : end;
    now.planned += nextPlanned <= nextSeen ? 1 : 0;
    now.seen += nextSeen <= nextPlanned ? 1 : 0;
  }
  return pairs;
}

}  // namespace animate
