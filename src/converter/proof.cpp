#include "converter/proof.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "converter/encoding.h"
#include "converter/recipe.h"
#include "converter/small_pictures.h"
#include "film/failure.h"
#include "platform/paths.h"

namespace animate {
namespace {

std::string Shown(double seconds) {
  char text[32];
  std::snprintf(&text[0], sizeof(text), "%.3f s", seconds);
  return &text[0];
}

Packets ReadBack(const Converter& converter, const Film& film, const std::filesystem::path& target,
                 const std::filesystem::path& folder) {
  Packets packets;
  const auto read = converter.ReadOutput(
      {"-f", RecipeFor(*film.format).demuxer, "-i", platform::ArgumentOfPath(target), "-map",
       "0:v:0", "-c", "copy", "-copyinkf", "-f", "framecrc", "pipe:1"},
      folder, [&](const std::string& line) { packets.Take(line); });
  if (!read) {
    throw Failure("the finished file cannot be read back: " + read.Reason());
  }
  return packets;
}

Likeness Compare(const Converter& converter, const Film& film, const std::filesystem::path& target,
                 const std::filesystem::path& folder) {
  const std::string seen = "seen.rgb";
  const auto looked = converter.MakePictures(
      {"-f", RecipeFor(*film.format).demuxer, "-i", platform::ArgumentOfPath(target), "-map",
       "0:v:0", "-vsync", "0", "-vf", SeenColours(film) + "," + SmallPicture(film), "-f",
       "rawvideo", seen},
      folder, [](std::size_t) {});
  if (!looked) {
    throw Failure("the finished file cannot be looked at: " + looked.Reason());
  }
  return ComparePictures(film, folder / kPlannedPictures, folder / seen);
}

}  // namespace

Measurement Prove(const Converter& converter, const Film& film, const std::filesystem::path& target,
                  const std::filesystem::path& folder) {
  Measurement measured = Measured(film, ReadBack(converter, film, target, folder));
  if (CanCompare(*film.format)) {
    measured.likeness = Compare(converter, film, target, folder);
  }
  return measured;
}

Measurement Measured(const Film& film, const Packets& packets) {
  const std::size_t planned = film.shown.size();
  if (packets.count != planned) {
    throw Failure("the finished file has " + std::to_string(packets.count) + " frames instead of " +
                  std::to_string(planned));
  }
  if (packets.size != film.size) {
    throw Failure("the finished file has pictures of another size");
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
    throw Failure("the finished file takes " + Shown(span) +
                  " from the first frame to the last instead of " + Shown(wanted));
  }
  return {packets.count, static_cast<double>(planned) / film.rate.value, packets.size};
}

}  // namespace animate
