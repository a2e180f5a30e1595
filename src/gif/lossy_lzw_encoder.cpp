#include "gif/lossy_lzw_encoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "gif/in_parts.h"
#include "gif/lzw_clearing.h"
#include "gif/lzw_codes.h"
#include "gif/lzw_strings.h"
#include "gif/nearest_colour.h"
#include "gif/pixel_prices.h"

namespace {

// Ways that are behind the best by so many bits are given up.
constexpr float kBehindBits = 7;
// Strings whose first pixel costs more bits are not begun: what they gain later seldom pays.
constexpr float kFirstBits = 4.5;
// A longer search finds next to nothing.
constexpr int kMostSteps = 400;
constexpr float kForbidden = 1e30F;

class LossyLzwEncoder {
 public:
  // The pixels become `entries`, which are as many.
  LossyLzwEncoder(const LossyImage& image, std::span<std::uint8_t> entries);

  LzwCodes Encode();

 private:
  // A known string for the next pixels, and by how much it is better than none. Many are moved
  // about, so it is small: no string has more pixels than there are codes.
  struct Way {
    Way(float gained, int stringCode, int pixels)
        : gain(gained),
          code(static_cast<std::int16_t>(stringCode)),
          length(static_cast<std::int16_t>(pixels)) {}

    float gain;
    std::int16_t code;
    std::int16_t length;
  };

  Way BestWay(std::size_t start);
  bool Begin(const LossyPixel& pixel, int entry, float cost);
  int FarthestToBegin(const LossyPixel& pixel) const;
  void GoOnAll(std::span<const LossyPixel> rest);
  Way GoOn(const Way& way, const LossyPixel& pixel);
  bool TakesOn(const Way& way);
  float Cost(const LossyPixel& pixel, int entry) const;
  float CostOfStaying(const LossyPixel& pixel) const;
  void TakePixels(const Way& way, std::size_t begin);

  LossyImage image_;
  float bitPrice_;
  // Ways that are behind the best by so much are given up.
  float behind_;
  std::array<Colour, 256> table_ = {};
  std::span<std::uint8_t> entries_;
  LzwCodes codes_;
  LzwStrings strings_;
  // The string before, and the code of the one that is made of it; kNone for none.
  int before_ = LzwStrings::kNone;
  int made_ = LzwStrings::kNone;
  // Whether that string may be taken at once, where it begins as the one before: it has no code
  // yet.
  bool mayTakeMade_ = false;
  Way best_ = Way(0, LzwStrings::kNone, 0);
  // Ways yet to be gone on.
  std::vector<Way> ways_;
  // The pixels by which ways were gone on for this code.
  int steps_ = 0;
  PixelPrices prices_;
};

LossyLzwEncoder::LossyLzwEncoder(const LossyImage& image, std::span<std::uint8_t> entries)
    : image_(image),
      bitPrice_(std::max(image.bitPrice, kLeastBitPrice)),
      behind_(kBehindBits * bitPrice_),
      entries_(entries),
      codes_(image.codeSize),
      prices_(bitPrice_) {
  const std::vector<Colour>& table = image.colours->Table();
  std::copy(table.begin(), table.end(), table_.begin());
  strings_.Clear(1 << image.codeSize);
}

LzwCodes LossyLzwEncoder::Encode() {
  LzwClearing clearing{LzwClearing::kUsualWindow};
  clearing.Restart(0, codes_.BitCount());
  for (std::size_t place = 0; place < image_.pixels.size();) {
    const int next = codes_.NextCode();
    made_ = before_ != LzwStrings::kNone && next < LzwStrings::kLimit ? next : LzwStrings::kNone;
    mayTakeMade_ = made_ != LzwStrings::kNone &&
                   strings_.Longer(before_, strings_.FirstOf(before_)) == LzwStrings::kNone;
    const Way way = BestWay(place);
    if (made_ != LzwStrings::kNone) {
      const int first = way.code == made_ ? strings_.FirstOf(before_) : strings_.FirstOf(way.code);
      strings_.Add(before_, first, made_);
    }
    TakePixels(way, place);
    codes_.Write(way.code);
    before_ = way.code;
    place += static_cast<std::size_t>(way.length);
    if (codes_.NextCode() == LzwStrings::kLimit && clearing.Pays(place, codes_.BitCount())) {
      codes_.Clear();
      strings_.Clear(1 << image_.codeSize);
      clearing.Restart(place, codes_.BitCount());
      before_ = LzwStrings::kNone;
    }
  }
  return std::move(codes_);
}

LossyLzwEncoder::Way LossyLzwEncoder::BestWay(std::size_t start) {
  const std::span<const LossyPixel> rest = image_.pixels.subspan(start);
  const LossyPixel& pixel = rest[0];
  const bool mayBeDrawn = pixel.drawn != LossyPixel::kNever;
  best_ = Way(-kForbidden, LzwStrings::kNone, 0);
  ways_.clear();
  steps_ = 0;
  if (mayBeDrawn) {
    Begin(pixel, pixel.nearest, Cost(pixel, pixel.nearest));
  }
  // Of equal ways the last is taken, and gone on first: pixels that may stay should all do so.
  Begin(pixel, image_.transparent, CostOfStaying(pixel));
  GoOnAll(rest);
  if (mayBeDrawn) {
    // The better the best is by now, the fewer of the others are begun.
    int farthest = FarthestToBegin(pixel);
    for (const auto& [entry, distance] : image_.colours->Of(pixel.nearest).subspan(1)) {
      if (distance > farthest) {
        break;
      }
      if (Begin(pixel, entry, Cost(pixel, entry))) {
        GoOnAll(rest);
        farthest = FarthestToBegin(pixel);
      }
    }
  }
  return best_;
}

// Sees the string of a pixel alone, as an entry. Returns whether it is to be gone on.
bool LossyLzwEncoder::Begin(const LossyPixel& pixel, int entry, float cost) {
  const Way way(prices_.Worth(pixel) - cost, entry, 1);
  if (cost > kFirstBits * bitPrice_ || !TakesOn(way)) {
    return false;
  }
  ways_.push_back(way);
  return true;
}

// How far from the nearest an entry can be for a string that begins with it not to be too far
// behind.
int LossyLzwEncoder::FarthestToBegin(const LossyPixel& pixel) const {
  const float most = std::min(kFirstBits * bitPrice_, prices_.Worth(pixel) - best_.gain + behind_);
  const auto nearest = static_cast<float>(pixel.drawn);
  const float farthest = std::max(0.0F, static_cast<float>(pixel.Least()) + most / pixel.weight);
  // The square of the sum of the two ways.
  return static_cast<int>(nearest + farthest + 2 * std::sqrt(nearest * farthest));
}

void LossyLzwEncoder::GoOnAll(std::span<const LossyPixel> rest) {
  while (steps_ < kMostSteps && !ways_.empty()) {
    Way way = ways_.back();
    ways_.pop_back();
    while (way.code != LzwStrings::kNone && way.gain >= best_.gain - behind_ &&
           static_cast<std::size_t>(way.length) < rest.size()) {
      way = GoOn(way, rest[static_cast<std::size_t>(way.length)]);
      ++steps_;
    }
  }
}

// Goes on from a way by a pixel. Returns the best of the ways that this makes, and keeps the others
// for later; those too far behind the best of all are left out.
LossyLzwEncoder::Way LossyLzwEncoder::GoOn(const Way& way, const LossyPixel& pixel) {
  const float gain = way.gain + prices_.Worth(pixel);
  const float mostCost =
      std::min(gain - best_.gain + behind_, kBitsOfCode * bitPrice_ * pixel.weight);
  const float costOfStaying = CostOfStaying(pixel);
  const int leastError = pixel.Least();
  // Most longer strings are too costly: whole numbers say so soonest.
  const int mostError = pixel.drawn == LossyPixel::kNever
                            ? -1
                            : leastError + static_cast<int>(mostCost / pixel.weight);
  Way next(-kForbidden, LzwStrings::kNone, 0);
  const auto add = [&](int longer, int entry) {
    float cost = costOfStaying;
    if (entry != image_.transparent) {
      const int error = ColourDistance(pixel.wanted, table_[static_cast<std::size_t>(entry)]);
      if (error > mostError) {
        return;
      }
      cost = static_cast<float>(error - leastError) * pixel.weight;
    } else if (cost > mostCost) {
      return;
    }
    Way found(gain - cost, longer, way.length + 1);
    if (!TakesOn(found)) {
      return;
    }
    if (found.gain >= next.gain) {
      std::swap(found, next);
    }
    if (found.code != LzwStrings::kNone) {
      ways_.push_back(found);
    }
  };
  for (int code = strings_.LastLonger(way.code); code != LzwStrings::kNone;
       code = strings_.LongerBefore(code)) {
    add(code, strings_.LastOf(code));
  }
  if (way.code == before_ && mayTakeMade_) {
    add(made_, strings_.FirstOf(before_));
  }
  return next;
}

// Sees whether a way is the best. Returns whether it can be gone on.
bool LossyLzwEncoder::TakesOn(const Way& way) {
  if (way.gain >= best_.gain) {
    best_ = way;
  }
  return strings_.LastLonger(way.code) != LzwStrings::kNone || way.code == before_;
}

// What the error of a pixel costs above the least that is drawn, as it may be, as this entry.
float LossyLzwEncoder::Cost(const LossyPixel& pixel, int entry) const {
  const int error = ColourDistance(pixel.wanted, table_[static_cast<std::size_t>(entry)]);
  const auto more = static_cast<float>(error - pixel.Least());
  return more > kBitsOfCode * bitPrice_ ? kForbidden : more * pixel.weight;
}

// The same of one that stays.
float LossyLzwEncoder::CostOfStaying(const LossyPixel& pixel) const {
  constexpr float kBitsOfPreference = 0.01F;
  const auto more = static_cast<float>(pixel.staying - pixel.Least());
  return more * pixel.weight + (pixel.isBetterDrawn ? kBitsOfPreference * bitPrice_ : 0);
}

// Has the pixels of a string from `begin` on, and has the prices learn from it.
void LossyLzwEncoder::TakePixels(const Way& way, std::size_t begin) {
  int code = way.code;
  int drawn = 0;
  float errors = 0;
  for (std::size_t place = begin + static_cast<std::size_t>(way.length); place-- > begin;
       code = strings_.ShorterOf(code)) {
    const int entry = strings_.LastOf(code);
    entries_[place] = static_cast<std::uint8_t>(entry);
    if (entry != image_.transparent) {
      ++drawn;
      errors += Cost(image_.pixels[place], entry);
    }
  }
  prices_.Learn(way.length, drawn, errors);
}

}  // namespace

LossyData EncodeLossily(const LossyImage& image, std::size_t parts) {
  LossyData data;
  data.entries.resize(image.pixels.size());
  std::vector<LzwCodes> done(parts, LzwCodes(image.codeSize));
  InParts(parts, [&](std::size_t, std::size_t part) {
    const std::size_t begin = BeginOf(part, parts, image.pixels.size());
    const std::size_t count = BeginOf(part + 1, parts, image.pixels.size()) - begin;
    LossyImage some = image;
    some.pixels = image.pixels.subspan(begin, count);
    done[part] = LossyLzwEncoder(some, std::span(data.entries).subspan(begin, count)).Encode();
  });
  LzwCodes whole = std::move(done.front());
  for (std::size_t part = 1; part < parts; ++part) {
    whole.Append(done[part]);
  }
  data.bytes = whole.Finish();
  return data;
}
