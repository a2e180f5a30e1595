#include "gif/frame_tables.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "gif/film_colours.h"
#include "gif/halves.h"
#include "gif/sampled_places.h"

namespace {

// What a table costs, and how many times that it has to gain: finer colours are rarer too, which
// makes strings shorter.
constexpr double kTableBits = 256 * 3 * 8;
constexpr double kGain = 4;
// Without a price the smallest gain would do.
constexpr double kLeastBitPrice = 0.3;
// Where so little is lost, what a table leaves is seen.
constexpr float kThoroughBelow = 1;
constexpr std::size_t kSamples = 30000;
constexpr std::size_t kManySamples = 100000;
constexpr std::size_t kLongestRest = 16;

// Returns the error of all pixels.
double MeasureSome(std::span<LossyPixel> pixels, NearestColour& colours) {
  double error = 0;
  for (LossyPixel& pixel : pixels) {
    if (pixel.drawn != LossyPixel::kNever) {
      const auto [entry, distance] = colours.Of(pixel.wanted);
      pixel.nearest = entry;
      pixel.drawn = distance;
    }
    error += static_cast<double>(pixel.weight * static_cast<float>(pixel.Least()));
  }
  return error;
}

double Measure(std::span<LossyPixel> pixels, std::array<NearestColour, 2>& colours) {
  std::array<double, 2> errors = {};
  InHalves(pixels.size(), [&](std::size_t half, std::size_t begin, std::size_t end) {
    errors[half] = MeasureSome(pixels.subspan(begin, end - begin), colours[half]);
  });
  return errors[0] + errors[1];
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
    : nearGlobal_{NearestColour(global), NearestColour(global)},
      global_(std::move(global)),
      isExact_(isExact),
      tablePrice_(kTableBits * kGain * std::max<double>(bitPrice, kLeastBitPrice)),
      samples_(bitPrice < kThoroughBelow ? kManySamples : kSamples),
      counts_(bitPrice < kThoroughBelow ? ColourCounts::Care::kThorough
                                        : ColourCounts::Care::kQuick) {}

FrameTables::Choice FrameTables::Choose(std::span<LossyPixel> pixels) {
  const double error = Measure(pixels, nearGlobal_);
  const Choice global = {&global_, false};
  if (isExact_ || rest_ > 0) {
    rest_ -= rest_ > 0 ? 1 : 0;
    return global;
  }
  if (error > tablePrice_) {
    const std::vector<Colour> own = OwnOf(pixels);
    std::array<NearestColour, 2> nearOwn = {NearestColour(own), NearestColour(own)};
    if (error - Measure(pixels, nearOwn) > tablePrice_) {
      nextRest_ = 1;
      own_.emplace(own);
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
  ForSampledPlaces(pixels.size(), samples_, 0, [&](std::size_t place) {
    const LossyPixel& pixel = pixels[place];
    if (pixel.drawn != LossyPixel::kNever) {
      const double need = std::min(1.0, pixel.staying / kFullError);
      counts_.Add(pixel.wanted, need + kLeastCount);
    }
  });
  return counts_.Choose(FilmColours::kMost);
}
