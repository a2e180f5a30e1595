#include "converter/proof.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

#include "converter/encoding.h"
#include "converter/raw_pictures.h"
#include "converter/recipe.h"
#include "converter/small_pictures.h"
#include "film/failure.h"
#include "film/gif_clock.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "platform/input_file.h"
#include "platform/line_splitter.h"
#include "platform/paths.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// Of a file that the converter or this program has left in the folder; empty without one.
std::string ContentOf(const fs::path& path) {
  const auto file = platform::InputFile::Open(path);
  return file ? file->Read(0, static_cast<std::size_t>(file->Size())) : "";
}

std::string Shown(double seconds) {
  char text[32];
  std::snprintf(&text[0], sizeof(text), "%.3f s", seconds);
  return &text[0];
}

// The file in the folder that its pictures in small come into.
constexpr char kSeenPictures[] = "seen.rgb";

// Reads it, where there is `untilFinished` not before that has returned.
ReadBack Read(const Converter& converter, const Film& film, const fs::path& target,
              const fs::path& folder, bool everyPixel,
              const std::function<void()>& untilFinished = nullptr) {
  const std::string packets = "packets.txt";
  // An input with nothing in it, whose end the converter waits for.
  const Words wait = untilFinished ? Words{"-f", "ffmetadata", "-i", "pipe:0"} : Words();
  const std::string video = untilFinished ? "1:v:0" : "0:v:0";
  const Words picture = {"-map", video, "-vsync", "0"};
  ReadBack found;
  // With alpha: a hole is another picture, whatever its colour.
  RawPictures pictures(film, RawPixels::kAll,
                       [&](const RawPicture& one) { found.whole += FingerprintOf(one); });
  const auto read = converter.ReadBytes(
      Joined(wait, converter.Threads(), DecoderWords(film),
             Words{"-i", platform::ArgumentOfPath(target)},
             Words{"-map", video, "-c", "copy", "-copyinkf", "-f", "framecrc", packets}, picture,
             Words{"-vf", SeenInSmall(film), "-c:v", "rawvideo", "-f", "rawvideo", kSeenPictures},
             everyPixel ? Joined(picture, RawOutput(RawPixels::kAll)) : Words()),
      folder, [&](std::string_view piece) { pictures.Take(piece); }, untilFinished);
  if (!read) {
    throw Failure("the finished file cannot be read back: " + read.Reason());
  }
  platform::LineSplitter lines([&](const std::string& line) { found.packets.Take(line); });
  lines.Take(ContentOf(folder / packets));
  lines.Finish();
  return found;
}

// Throws a Failure unless each pair of pictures has the same fingerprint.
void CompareWhole(const Film& film, const std::string& planned, const std::string& seen,
                  const std::vector<Pair>& pairs) {
  const auto at = [](const std::string& all, std::size_t number) {
    return std::string_view(all).substr(std::min(number * kFingerprintSize, all.size()),
                                        kFingerprintSize);
  };
  for (const Pair& pair : pairs) {
    if (at(planned, pair.planned) != at(seen, pair.seen)) {
      throw Failure("the finished file has not every pixel of " +
                    Quoted(film.frames[film.shown[pair.planned]].path.filename()));
    }
  }
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

void Proof::Prepare(const Film& film, bool everyPixel) {
  if (readBack_.valid()) {
    // It finds no film yet, and ends.
    isFinished_.set_value();
    readBack_.wait();
    isFinished_ = {};
  }
  readBack_ = std::async(
      std::launch::async, [this, film, everyPixel, isFinished = isFinished_.get_future()] {
        return Read(converter_, film, target_, folder_, everyPixel, [&] { isFinished.wait(); });
      });
}

// Nothing where the converter was not prepared, or does not read in that way.
std::optional<ReadBack> Proof::Prepared() {
  if (!readBack_.valid()) {
    return std::nullopt;
  }
  isFinished_.set_value();
  try {
    return readBack_.get();
  } catch (const std::exception&) {
    // Also where there is no thread to hold its input.
    StopIfInterrupted();
    return std::nullopt;
  }
}

Measurement Proof::Of(const Film& film) {
  const std::string planned = ContentOf(folder_ / kWholePictures);
  std::optional<ReadBack> prepared = Prepared();
  const ReadBack found =
      prepared ? *std::move(prepared) : Read(converter_, film, target_, folder_, !planned.empty());
  Measurement measured = Measured(film, found.packets);
  const std::vector<Pair> pairs = JoinsEqualPictures(film) ? PairsByTime(film, found.packets.times)
                                                           : InOrder(found.packets.count);
  measured.likeness =
      ComparePictures(film, folder_ / kPlannedPictures, folder_ / kSeenPictures, pairs);
  if (!planned.empty()) {
    CompareWhole(film, planned, found.whole, pairs);
    measured.likeness->isExact = true;
  }
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
