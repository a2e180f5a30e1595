#include "gif/lossy_lzw_encoder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "gif/lzw_clearing.h"

namespace {

// About the width of a code.
constexpr float kCodeBits = 12;
// Ways that are behind the best by so many bits are given up.
constexpr float kBehindBits = 9;
// A longer search finds next to nothing.
constexpr int kMostWays = 400;
constexpr std::size_t kMostFirst = 16;
constexpr float kForbidden = 1e30F;
// Without a price the longest string is sought, and no error is small beside it.
constexpr float kNoPrice = 1e-3F;

}  // namespace

LossyLzwEncoder::LossyLzwEncoder(const LossyImage& image) : image_(image), codes_(image.codeSize) {
  constexpr float kFirstDrawnBits = 2;
  constexpr float kFirstStayingBits = 0.2F;
  image_.bitPrice = std::max(image.bitPrice, kNoPrice);
  priceDrawn_ = image_.bitPrice * kFirstDrawnBits;
  priceStaying_ = image_.bitPrice * kFirstStayingBits;
  entries_.reserve(image.pixels.size());
  strings_.Clear(1 << image.codeSize);
}

LossyData LossyLzwEncoder::Encode() {
  LzwClearing clearing;
  clearing.Restart(0, codes_.BitCount());
  for (std::size_t place = 0; place < image_.pixels.size();) {
    const int next = codes_.NextCode();
    made_ = before_ != LzwStrings::kNone && next < LzwStrings::kLimit ? next : LzwStrings::kNone;
    const Way way = BestWay(place);
    if (made_ != LzwStrings::kNone) {
      const int first = way.code == made_ ? strings_.FirstOf(before_) : strings_.FirstOf(way.code);
      strings_.Add(before_, first, made_);
    }
    TakePixels(way);
    Learn(way, place);
    codes_.Write(way.code);
    before_ = way.code;
    place += way.length;
    if (codes_.NextCode() == LzwStrings::kLimit && clearing.Pays(place, codes_.BitCount())) {
      codes_.Clear();
      strings_.Clear(1 << image_.codeSize);
      clearing.Restart(place, codes_.BitCount());
      before_ = LzwStrings::kNone;
    }
  }
  return {codes_.Finish(), std::move(entries_)};
}

LossyLzwEncoder::Way LossyLzwEncoder::BestWay(std::size_t start) {
  const float behind = kBehindBits * image_.bitPrice;
  Begin(start);
  Way best = ways_.back();
  for (int count = 0; count < kMostWays && !ways_.empty(); ++count) {
    const Way way = ways_.back();
    ways_.pop_back();
    if (way.gain > best.gain) {
      best = way;
    }
    if (way.gain >= best.gain - behind && start + way.length < image_.pixels.size()) {
      GoOn(way, start, best.gain - behind);
    }
  }
  return best;
}

// Fills the ways with the strings of one pixel.
void LossyLzwEncoder::Begin(std::size_t start) {
  const LossyPixel& pixel = image_.pixels[start];
  const float behind = kBehindBits * image_.bitPrice;
  const float worth = Worth(pixel);
  ways_.clear();
  const auto add = [&](int entry) {
    if (const float cost = Cost(pixel, entry); cost <= behind || cost == 0) {
      ways_.push_back({entry, 1, worth - cost});
    }
  };
  if (pixel.drawn != LossyPixel::kNever) {
    const float reach = std::sqrt(static_cast<float>(pixel.drawn)) +
                        std::sqrt(static_cast<float>(pixel.Least()) + behind / pixel.weight);
    std::size_t count = 0;
    for (const auto& [entry, distance] : image_.colours->NeighboursOf(pixel.nearest)) {
      if (++count > kMostFirst || static_cast<float>(distance) > reach * reach) {
        break;
      }
      add(entry);
    }
  }
  // Of equal ways the last is followed first: pixels that may stay should all do so.
  add(image_.transparent);
  std::stable_sort(ways_.begin(), ways_.end(),
                   [](const Way& a, const Way& b) { return a.gain < b.gain; });
}

// Adds the ways that go on from one by a pixel, those behind `least` left out.
void LossyLzwEncoder::GoOn(const Way& way, std::size_t start, float least) {
  const LossyPixel& pixel = image_.pixels[start + way.length];
  const std::size_t known = ways_.size();
  bool isKnown = false;
  const int first = way.code == before_ ? strings_.FirstOf(before_) : 0;
  if (way.code == made_) {
    return;
  }
  for (int code = strings_.LastLonger(way.code); code != LzwStrings::kNone;
       code = strings_.LongerBefore(code)) {
    const int entry = strings_.LastOf(code);
    isKnown |= entry == first;
    GoOnWith(way, code, entry, pixel, least);
  }
  // The string that is being made may be taken at once, where this one begins as the one before.
  if (way.code == before_ && made_ != LzwStrings::kNone && !isKnown) {
    GoOnWith(way, made_, first, pixel, least);
  }
  if (ways_.size() > known + 1) {
    std::sort(ways_.begin() + static_cast<std::ptrdiff_t>(known), ways_.end(),
              [](const Way& a, const Way& b) { return a.gain < b.gain; });
  }
}

void LossyLzwEncoder::GoOnWith(const Way& way, int code, int entry, const LossyPixel& pixel,
                               float least) {
  const float gain = way.gain + Worth(pixel) - Cost(pixel, entry);
  if (gain >= std::max(least, way.gain - kBehindBits * image_.bitPrice)) {
    ways_.push_back({code, way.length + 1, gain});
  }
}

// What it is worth to have reached a pixel: what it will cost otherwise.
float LossyLzwEncoder::Worth(const LossyPixel& pixel) const {
  if (pixel.staying == LossyPixel::kNever) {
    return priceDrawn_;
  }
  const auto error = static_cast<float>(pixel.staying - pixel.Least());
  return std::min(priceDrawn_, error * pixel.weight + priceStaying_);
}

// What the error of a pixel as this entry costs above the least.
float LossyLzwEncoder::Cost(const LossyPixel& pixel, int entry) const {
  int error = pixel.staying;
  if (entry != image_.transparent) {
    error = pixel.drawn == LossyPixel::kNever
                ? LossyPixel::kNever
                : ColourDistance(pixel.wanted,
                                 image_.colours->Table()[static_cast<std::size_t>(entry)]);
  }
  const auto more = static_cast<float>(error - pixel.Least());
  return more > kCodeBits * image_.bitPrice ? kForbidden : more * pixel.weight;
}

void LossyLzwEncoder::TakePixels(const Way& way) {
  const std::size_t known = entries_.size();
  entries_.resize(known + way.length);
  int code = way.code;
  for (std::size_t place = entries_.size(); place > known; code = strings_.ShorterOf(code)) {
    entries_[--place] = static_cast<std::uint8_t>(strings_.LastOf(code));
  }
}

// Brings the prices up to date with a string.
void LossyLzwEncoder::Learn(const Way& way, std::size_t start) {
  constexpr float kNew = 0.03F;
  constexpr float kMostBits = 9;
  constexpr float kMostAtOnce = 32;
  float drawn = 0;
  float errors = 0;
  for (std::size_t place = start; place < start + way.length; ++place) {
    if (entries_[place] != image_.transparent) {
      drawn += 1;
      errors += Cost(image_.pixels[place], entries_[place]);
    }
  }
  const auto length = static_cast<float>(way.length);
  const float bits = image_.bitPrice * kCodeBits / length;
  const auto learn = [&](float& price, float pixels, float each) {
    const float share = kNew * std::min(pixels, kMostAtOnce);
    price += (std::min(each, kMostBits * image_.bitPrice) - price) * share / (1 + share);
  };
  if (drawn > 0) {
    learn(priceDrawn_, drawn, bits + errors / drawn);
  }
  if (drawn < length) {
    learn(priceStaying_, length - drawn, bits);
  }
}
