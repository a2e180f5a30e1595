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
constexpr double kMostEntries = 256;
constexpr double kTableBits = kMostEntries * 3 * 8;
constexpr double kGain = 4;
// Without a price the smallest gain would do.
constexpr double kLeastBitPrice = 0.3;
// Where so little is lost, what a table leaves is seen.
constexpr float kThoroughBelow = 1;
constexpr std::size_t kSamples = 30000;
constexpr std::size_t kManySamples = 100000;
constexpr std::size_t kLongestRest = 16;

// For pixels that are.
void NothingToFill(std::size_t, std::size_t) {}

// What a table is to some pixels.
struct Fit {
  double error = 0;
  // The pixels that one of its colours makes better than they are, and by how much each does.
  std::size_t needing = 0;
  std::array<float, 256> gains = {};
};

void MeasureSome(std::span<LossyPixel> pixels, NearestColour& colours, Fit& fit) {
  for (LossyPixel& pixel : pixels) {
    if (pixel.drawn != LossyPixel::kNever) {
      const auto [entry, distance] = colours.Of(pixel.wanted);
      pixel.nearest = entry;
      pixel.drawn = distance;
    }
    fit.error += static_cast<double>(pixel.weight * static_cast<float>(pixel.Least()));
    if (pixel.drawn < pixel.staying) {
      fit.gains[pixel.nearest] += static_cast<float>(pixel.staying - pixel.drawn) * pixel.weight;
      ++fit.needing;
    }
  }
}

// Says in the pixels what the nearest entries are for them, some at a time after `fill` had them,
// so that they are still in the cache.
Fit Measure(std::span<LossyPixel> pixels, std::array<NearestColour, 2>& colours,
            const FrameTables::Fill& fill) {
  constexpr std::size_t kAtOnce = 1024;
  std::array<Fit, 2> fits = {};
  InHalves(pixels.size(), 1, [&](std::size_t half, std::size_t begin, std::size_t end) {
    for (; begin < end; begin += kAtOnce) {
      const std::size_t count = std::min(kAtOnce, end - begin);
      fill(begin, begin + count);
      MeasureSome(pixels.subspan(begin, count), colours[half], fits[half]);
    }
  });
  fits[0].error += fits[1].error;
  fits[0].needing += fits[1].needing;
  for (std::size_t entry = 0; entry < fits[0].gains.size(); ++entry) {
    fits[0].gains[entry] += fits[1].gains[entry];
  }
  return fits[0];
}

Fit Measure(std::span<LossyPixel> pixels, const std::vector<Colour>& table,
            const FrameTables::Fill& fill) {
  std::array<NearestColour, 2> colours = {NearestColour(table), NearestColour(table)};
  return Measure(pixels, colours, fill);
}

// The colours of a table that gain more than `least`.
std::vector<Colour> NeededOf(const std::vector<Colour>& table, const Fit& fit, double least) {
  std::vector<Colour> needed;
  for (std::size_t entry = 0; entry < table.size(); ++entry) {
    if (fit.gains[entry] > least) {
      needed.push_back(table[entry]);
    }
  }
  return needed;
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

FrameTables::Choice FrameTables::Choose(std::span<LossyPixel> pixels, const Fill& fill) {
  // What is saved by narrower codes at the start of an image with many of them is more than a table
  // of so many bits costs.
  constexpr int kSmallBits = 5;
  constexpr std::size_t kManyPixels = 10000;
  if (TriesOwn()) {
    if (std::vector<Colour> own = OwnFor(pixels, fill); !own.empty()) {
      rest_ = 0;
      nextRest_ = 1;
      return Own(std::move(own), pixels, fill);
    }
  }
  const Fit ofGlobal = Measure(pixels, nearGlobal_, fill);
  if (ofGlobal.needing >= kManyPixels) {
    std::vector<Colour> needed = NeededOf(Global(), ofGlobal, tablePrice_ / kMostEntries);
    const int most = std::min(kSmallBits, LossyTableBits(Global()) - 1);
    if (!needed.empty() && LossyTableBits(needed) <= most) {
      return Own(std::move(needed), pixels, NothingToFill);
    }
  }
  return {&global_, false};
}

// Whether a table of the next frame's own is tried.
bool FrameTables::TriesOwn() {
  if (isExact_ || rest_ > 0) {
    rest_ -= rest_ > 0 ? 1 : 0;
    return false;
  }
  rest_ = nextRest_;
  nextRest_ = std::min(nextRest_ * 2, kLongestRest);
  return true;
}

FrameTables::Choice FrameTables::Own(std::vector<Colour> table, std::span<LossyPixel> pixels,
                                     const Fill& fill) {
  Measure(pixels, table, fill);
  own_.emplace(std::move(table));
  return {&*own_, true};
}

// The table that gains enough on the global one to be a frame's own; none when there is none.
std::vector<Colour> FrameTables::OwnFor(std::span<LossyPixel> pixels, const Fill& fill) {
  sample_.clear();
  ForSampledPlaces(pixels.size(), samples_, 0, [&](std::size_t place) {
    fill(place, place + 1);
    sample_.push_back(pixels[place]);
  });
  const double price = tablePrice_ * static_cast<double>(sample_.size()) /
                       static_cast<double>(pixels.size());
  const double ofGlobal = Measure(sample_, nearGlobal_, NothingToFill).error;
  if (ofGlobal <= price) {
    return {};
  }
  std::vector<Colour> own = OwnOfSample();
  const Fit ofOwn = Measure(sample_, own, NothingToFill);
  if (ofGlobal - ofOwn.error <= price) {
    return {};
  }
  std::vector<Colour> needed = NeededOf(own, ofOwn, price / kMostEntries);
  return LossyTableBits(needed) < LossyTableBits(own) ? needed : own;
}

// Those colours count that the screen does not show, and the others a little: they may be drawn
// where that is shorter.
std::vector<Colour> FrameTables::OwnOfSample() {
  constexpr double kFullError = 20;
  constexpr double kLeastCount = 0.02;
  counts_.Clear();
  for (const LossyPixel& pixel : sample_) {
    if (pixel.drawn != LossyPixel::kNever) {
      const double need = std::min(1.0, pixel.staying / kFullError);
      counts_.Add(pixel.wanted, need + kLeastCount);
    }
  }
  return counts_.Choose(FilmColours::kMost);
}
