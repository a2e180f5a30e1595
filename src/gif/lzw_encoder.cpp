#include "gif/lzw_encoder.h"

#include <algorithm>
#include <array>

#include "gif/lzw_clearing.h"

namespace {

// How many strings of one length are followed: more find hardly longer ones.
constexpr std::size_t kBreadth = 8;
// How many pixels a string is made shorter at most where that costs the table nothing.
constexpr std::size_t kMostBack = 2;
// The part of two strings' length that this has to gain while there is place for new strings.
constexpr std::size_t kGainPart = 4;

}  // namespace

std::string LzwEncoder::Encode(const LzwPixels& pixels) {
  pixels_ = pixels;
  LzwCodes codes(pixels.codeSize);
  LzwClearing clearing(pixels.window);
  strings_.Clear(1 << pixels.codeSize);
  growing_ = true;
  const std::size_t count = pixels.one.size();
  Match match = Longest(0);
  for (std::size_t place = 0;;) {
    const Matches matches = Choose(place, match);
    codes.Write(matches.first.code);
    place += matches.first.length;
    if (place == count) {
      return codes.Finish();
    }
    const int added = codes.NextCode();
    growing_ = added < LzwStrings::kLimit;
    if (growing_) {
      match = AddString(matches, place, added);
    } else if (clearing.Pays(place, codes.BitCount())) {
      codes.Clear();
      clearing.Restart(place, codes.BitCount());
      strings_.Clear(1 << pixels.codeSize);
      growing_ = true;
      match = Longest(place);
    } else {
      match = matches.second;
    }
  }
}

// The longest string that the pixels from `start` on may be.
LzwEncoder::Match LzwEncoder::Longest(std::size_t start) const {
  const std::size_t count = pixels_.one.size();
  int code = pixels_.one[start];
  if (code != pixels_.other[start]) {
    return LongestOfBoth(LzwStrings::kNone, start, start);
  }
  std::size_t place = start + 1;
  for (; place < count; ++place) {
    const int pixel = pixels_.one[place];
    if (pixel != pixels_.other[place]) {
      return LongestOfBoth(code, start, place);
    }
    const int longer = strings_.Longer(code, pixel);
    if (longer == LzwStrings::kNone) {
      break;
    }
    code = longer;
  }
  return {code, place - start};
}

// The same when the string of the pixels before `place` is known. Where pixels may be either of two
// entries there are several on the way.
LzwEncoder::Match LzwEncoder::LongestOfBoth(int code, std::size_t start, std::size_t place) const {
  std::array<int, 2 * kBreadth> found = {code};
  std::size_t count = 1;
  if (place == start) {
    found[0] = pixels_.one[start];
    found[1] = pixels_.other[start];
    count = 2;
    ++place;
  }
  for (; place < pixels_.one.size(); ++place) {
    const int one = pixels_.one[place];
    const int other = pixels_.other[place];
    std::array<int, 2 * kBreadth> longer;
    std::size_t longerCount = 0;
    const auto add = [&](int shorter, int pixel) {
      longer[longerCount] = strings_.Longer(shorter, pixel);
      longerCount += longer[longerCount] == LzwStrings::kNone ? 0 : 1;
    };
    for (std::size_t index = 0; index < count; ++index) {
      add(found[index], one);
      if (one != other) {
        add(found[index], other);
      }
    }
    if (longerCount == 0) {
      break;
    }
    count = std::min(longerCount, kBreadth);
    std::copy_n(longer.begin(), count, found.begin());
  }
  return {found[0], place - start};
}

// The string to take at `start`, where `longest` is known, and the longest after it. The longest is
// taken but where a shorter one lets the next reach farther.
LzwEncoder::Matches LzwEncoder::Choose(std::size_t start, const Match& longest) const {
  const std::size_t left = pixels_.one.size() - start;
  if (longest.length == left) {
    return {longest, {}};
  }
  Matches best = {longest, Longest(start + longest.length)};
  std::size_t reach = longest.length + best.second.length;
  const std::size_t mostBack = growing_ ? pixels_.mostBack : kMostBack;
  Match shorter = longest;
  while (shorter.length > 1 && longest.length - shorter.length < mostBack && reach < left) {
    shorter = {strings_.ShorterOf(shorter.code), shorter.length - 1};
    const Match next = Longest(start + shorter.length);
    const std::size_t gain = growing_ ? std::max(pixels_.leastGain, reach / kGainPart) : 1;
    if (shorter.length + next.length >= reach + gain) {
      best = {shorter, next};
      reach = shorter.length + next.length;
    }
  }
  return best;
}

// Has the string that the decoder makes of these two as `added`. Returns what to take at `place`,
// where the second begins: that, or the new one, which the next code may name already if it begins
// with its own first pixel again.
LzwEncoder::Match LzwEncoder::AddString(const Matches& matches, std::size_t place, int added) {
  const auto& [first, second] = matches;
  const int begin = strings_.FirstOf(first.code);
  const std::size_t end = place + first.length;
  if (first.length >= second.length && end < pixels_.one.size() && MayBe(begin, end) &&
      Fits(first.code, place)) {
    strings_.Add(first.code, begin, added);
    return {added, first.length + 1};
  }
  strings_.Add(first.code, strings_.FirstOf(second.code), added);
  return second;
}

// Whether the pixels from `start` on may be a string; there are as many.
bool LzwEncoder::Fits(int code, std::size_t start) const {
  std::size_t place = start + static_cast<std::size_t>(strings_.LengthOf(code));
  while (place > start && MayBe(strings_.LastOf(code), --place)) {
    if (place == start) {
      return true;
    }
    code = strings_.ShorterOf(code);
  }
  return false;
}
