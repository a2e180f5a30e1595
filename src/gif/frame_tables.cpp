#include "gif/frame_tables.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "gif/film_colours.h"

namespace {

// What a table costs, and how many times that it has to gain: finer colours are rarer too, which
// makes strings shorter.
constexpr double kTableBits = 256 * 3 * 8;
constexpr double kGain = 4;
// Without a price the smallest gain would do.
constexpr double kLeastBitPrice = 0.3;
// Where so little is lost, what a table leaves is seen.
constexpr float kThoroughBelow = 1;
constexpr std::size_t kLongestRest = 16;

void Measure(std::span<LossyPixel> pixels, NearestColour& colours) {
  for (LossyPixel& pixel : pixels) {
    if (pixel.drawn != LossyPixel::kNever) {
      const auto [entry, distance] = colours.Of(pixel.wanted);
      pixel.nearest = entry;
      pixel.drawn = distance;
    }
  }
}

double ErrorOf(std::span<const LossyPixel> pixels) {
  double error = 0;
  for (const LossyPixel& pixel : pixels) {
    error += static_cast<double>(pixel.weight) * pixel.Least();
  }
  return error;
}

}  // namespace

int LossyTableBits(const std::vector<Colour>& colours) {
  return static_cast<int>(std::bit_width(colours.size()));
}

std::string LossyTableBytes(const std::vector<Colour>& colours) {
  std::string bytes;
  for (const Colour& colour : colours) {
    bytes += {static_cast<char>(colour.red), static_cast<char>(colour.green),
              static_cast<char>(colour.blue)};
  }
  bytes.resize(std::size_t{3} << LossyTableBits(colours));
  return bytes;
}

FrameTables::FrameTables(std::vector<Colour> global, bool isExact, float bitPrice)
    : nearGlobal_(global),
      global_(std::move(global)),
      isExact_(isExact),
      tablePrice_(kTableBits * kGain * std::max<double>(bitPrice, kLeastBitPrice)),
      counts_(bitPrice < kThoroughBelow ? ColourCounts::Care::kThorough
                                        : ColourCounts::Care::kQuick) {}

FrameTables::Choice FrameTables::Choose(std::span<LossyPixel> pixels) {
  Measure(pixels, nearGlobal_);
  const Choice global = {&global_, false};
  if (isExact_ || rest_ > 0) {
    rest_ -= rest_ > 0 ? 1 : 0;
    return global;
  }
  const double error = ErrorOf(pixels);
  if (error > tablePrice_) {
    NearestColour own(OwnOf(pixels));
    Measure(pixels, own);
    if (error - ErrorOf(pixels) > tablePrice_) {
      nextRest_ = 1;
      own_.emplace(own.Table());
      return {&*own_, true};
    }
    Measure(pixels, nearGlobal_);
  }
  rest_ = nextRest_;
  nextRest_ = std::min(nextRest_ * 2, kLongestRest);
  return global;
}

// Those colours count that the screen does not show, and the others a little: they may be drawn
// where that is shorter.
std::vector<Colour> FrameTables::OwnOf(std::span<const LossyPixel> pixels) {
  constexpr double kFullError = 20;
  constexpr double kLeastCount = 0.02;
  counts_.Clear();
  for (const LossyPixel& pixel : pixels) {
    if (pixel.drawn != LossyPixel::kNever) {
      const double need = std::min(1.0, pixel.staying / kFullError);
      counts_.Add(pixel.wanted, need + kLeastCount);
    }
  }
  return counts_.Choose(FilmColours::kMost);
}
