#include "gif/frame_tables.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "gif/film_colours.h"
#include "gif/in_parts.h"
#include "gif/runs_to_draw.h"
#include "gif/sampled_places.h"

namespace {

// What a table costs, and how many times that it, and an entry of it, has to gain: finer colours
// are rarer too, which makes strings shorter, and those of another table are not what the screen
// shows.
constexpr double kMostEntries = 256;
constexpr double kTableBits = kMostEntries * 3 * 8;
constexpr double kTableGain = 16;
constexpr double kEntryGain = 4;
// Without a price the smallest gain would do.
constexpr double kLeastTablePrice = 0.075;
// Where so little is lost, what a table leaves is seen.
constexpr float kThoroughBelow = 1;
constexpr std::size_t kSamples = 30000;
constexpr std::size_t kManySamples = 100000;

// For pixels that are.
void NothingToFill(std::size_t, std::size_t) {}

// For those of which nothing more is asked.
constexpr auto kUnmeasured = [](std::size_t, std::span<const LossyPixel>) {};

// What a table is to some pixels.
struct Fit {
  double error = 0;
  // The pixels that one of its colours makes better than they are, and by how much each does.
  std::size_t needing = 0;
  std::array<float, 256> gains = {};
};

// Whether it makes no difference that is worth anything if a pixel is drawn or stays.
bool IsAsGoodDrawn(const LossyPixel& pixel, int noDifference) {
  // A difference below 0 becomes a large one.
  return static_cast<unsigned>(pixel.drawn - pixel.staying) <= static_cast<unsigned>(noDifference);
}

void MarkBetterDrawn(std::span<LossyPixel> pixels, int noDifference) {
  const auto stays = [&](std::size_t place) { return IsAsGoodDrawn(pixels[place], noDifference); };
  const auto changes = [&](std::size_t place) {
    return pixels[place].nearest != pixels[place - 1].nearest;
  };
  ForEachRunToDraw(0, pixels.size(), stays, changes, [&](std::size_t begin, std::size_t end) {
    for (; begin < end; ++begin) {
      pixels[begin].isBetterDrawn = true;
    }
  });
}

void FindNearestOfSome(std::span<LossyPixel> pixels, NearestColour& colours, int noDifference) {
  // Where colours change more often than that a run that is drawn is like nothing.
  constexpr int kLeastPixelsOfColour = 3;
  int asGood = 0;
  int changing = 0;
  int before = 0;
  for (LossyPixel& pixel : pixels) {
    if (pixel.drawn != LossyPixel::kNever) {
      const auto [entry, distance] = colours.Of(pixel.wanted);
      pixel.nearest = entry;
      pixel.drawn = distance;
    }
    // Without branches: which way they go is hard to guess.
    const int isAsGood = static_cast<int>(IsAsGoodDrawn(pixel, noDifference));
    asGood += isAsGood;
    changing += isAsGood & static_cast<int>(pixel.nearest != before);
    before = pixel.nearest;
    pixel.isBetterDrawn = false;
  }
  if (changing * kLeastPixelsOfColour <= asGood) {
    MarkBetterDrawn(pixels, noDifference);
  }
}

// Says in the pixels what the nearest entries are for them, some at a time after `fill` had them,
// so that they are still in the cache. `found` gets these with the number of their part.
template <typename Found>
void FindNearest(std::span<LossyPixel> pixels, NearColours& colours, int noDifference,
                 const FrameTables::Fill& fill, const Found& found) {
  constexpr std::size_t kAtOnce = 1024;
  const std::size_t parts = PartsOf(pixels.size());
  InParts(parts, [&](std::size_t thread, std::size_t part) {
    const std::size_t end = BeginOf(part + 1, parts, pixels.size());
    for (std::size_t begin = BeginOf(part, parts, pixels.size()); begin < end; begin += kAtOnce) {
      const std::size_t count = std::min(kAtOnce, end - begin);
      fill(begin, begin + count);
      const std::span<LossyPixel> some = pixels.subspan(begin, count);
      FindNearestOfSome(some, colours.at(thread), noDifference);
      found(part, some);
    }
  });
}

void Add(std::span<const LossyPixel> pixels, Fit& fit) {
  double error = 0;
  std::size_t needing = 0;
  for (const LossyPixel& pixel : pixels) {
    error += static_cast<double>(pixel.weight * static_cast<float>(pixel.Least()));
    if (pixel.drawn < pixel.staying) {
      fit.gains[pixel.nearest] += static_cast<float>(pixel.staying - pixel.drawn) * pixel.weight;
      ++needing;
    }
  }
  fit.error += error;
  fit.needing += needing;
}

// The same, and how the table fits.
Fit Measure(std::span<LossyPixel> pixels, NearColours& colours, int noDifference,
            const FrameTables::Fill& fill) {
  std::vector<Fit> fits(PartsOf(pixels.size()));
  FindNearest(pixels, colours, noDifference, fill,
              [&](std::size_t part, std::span<const LossyPixel> some) { Add(some, fits[part]); });
  Fit whole;
  for (const Fit& fit : fits) {
    whole.error += fit.error;
    whole.needing += fit.needing;
    std::transform(fit.gains.begin(), fit.gains.end(), whole.gains.begin(), whole.gains.begin(),
                   std::plus<>());
  }
  return whole;
}

NearColours OnTwoThreads(const std::vector<Colour>& table) {
  return {NearestColour(table), NearestColour(table)};
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

FrameTables::FrameTables(std::vector<Colour> global, bool isExact, float bitPrice)
    : nearGlobal_(OnTwoThreads(global)),
      global_(std::move(global)),
      isExact_(isExact),
      noDifference_(static_cast<int>(bitPrice / 2)),
      entryPrice_(kTableBits * kEntryGain * bitPrice / kMostEntries),
      tablePrice_(kTableBits * kTableGain * std::max<double>(bitPrice, kLeastTablePrice)),
      samples_(bitPrice < kThoroughBelow ? kManySamples : kSamples),
      counts_(bitPrice < kThoroughBelow ? ColourCounts::Care::kThorough
                                        : ColourCounts::Care::kQuick) {}

FrameTables::Choice FrameTables::Choose(std::span<LossyPixel> pixels, const Fill& fill) {
  // What is saved by narrower codes at the start of an image with many of them is more than a table
  // of so many bits costs.
  constexpr int kSmallBits = 5;
  constexpr std::size_t kManyPixels = 10000;
  if (!isExact_ && ownTrials_.Next()) {
    if (std::optional<NearColours> own = OwnFor(pixels, fill)) {
      ownTrials_.Helped();
      FindNearest(pixels, *own, noDifference_, fill, kUnmeasured);
      return Own(own->front().Table());
    }
  }
  const Fit ofGlobal = Measure(pixels, nearGlobal_, noDifference_, fill);
  if (ofGlobal.needing >= kManyPixels) {
    std::vector<Colour> needed = NeededOf(Global(), ofGlobal, entryPrice_);
    const int most = std::min(kSmallBits, LossyTableBits(Global()) - 1);
    if (!needed.empty() && LossyTableBits(needed) <= most) {
      NearColours near = OnTwoThreads(needed);
      FindNearest(pixels, near, noDifference_, NothingToFill, kUnmeasured);
      return Own(std::move(needed));
    }
  }
  return {&global_, false};
}

FrameTables::Choice FrameTables::Own(std::vector<Colour> table) {
  own_.emplace(std::move(table));
  return {&*own_, true};
}

// The table that gains enough on the global one to be a frame's own, if there is one.
std::optional<NearColours> FrameTables::OwnFor(std::span<const LossyPixel> pixels,
                                               const Fill& fill) {
  places_.clear();
  ForSampledPlaces(pixels.size(), samples_, 0,
                   [&](std::size_t place) { places_.push_back(place); });
  sample_.resize(places_.size());
  const auto fillSample = [&](std::size_t begin, std::size_t end) {
    for (; begin < end; ++begin) {
      fill(places_[begin], places_[begin] + 1);
      sample_[begin] = pixels[places_[begin]];
    }
  };
  const double price =
      tablePrice_ * static_cast<double>(sample_.size()) / static_cast<double>(pixels.size());
  const double ofGlobal = Measure(sample_, nearGlobal_, noDifference_, fillSample).error;
  if (ofGlobal <= price) {
    return std::nullopt;
  }
  NearColours own = OnTwoThreads(OwnOfSample());
  const Fit ofOwn = Measure(sample_, own, noDifference_, NothingToFill);
  if (ofGlobal - ofOwn.error <= price) {
    return std::nullopt;
  }
  const std::vector<Colour>& table = own.front().Table();
  const std::vector<Colour> needed = NeededOf(table, ofOwn, price / kMostEntries);
  return LossyTableBits(needed) < LossyTableBits(table) ? OnTwoThreads(needed) : std::move(own);
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
  return counts_.Choose(FewColours::kMost);
}
