#include "gif/lzw_encoder.h"

#include <algorithm>
#include <array>

namespace {
constexpr int kBreadth = 8;
constexpr int kBack = 4;
constexpr int kGain = 2;
constexpr int kGainFull = 1;
constexpr int kWindow = 512;
constexpr int kDefer = 1;
constexpr int kPct = 100;
}  // namespace

std::string LzwEncoder::Encode(const LzwPixels& pixels) {
  pixels_ = pixels;
  LzwCodes codes(pixels.codeSize);
  strings_.Clear(1 << pixels.codeSize);
  const std::size_t count = pixels.one.size();
  Match match = Longest(0);
  std::size_t startPixels = 0, windowPixels = 0;
  std::uint64_t startBits = codes.BitCount(), windowBits = 0;
  int inWindow = 0;
  full_ = false;
  double best = 0;
  for (std::size_t place = 0; place < count;) {
    Match next;
    match = Choose(place, match, next);
    codes.Write(match.code);
    place += match.length;
    if (place == count) {
      break;
    }
    const int added = codes.NextCode();
    if (added < LzwStrings::kLimit) {
      // Only when the next string begins as this one does may it be the one that is made here.
      const int first = strings_.FirstOf(match.code);
      if (match.length + 1 > next.length && match.length + 1 <= count - place &&
          (first == pixels_.one[place + match.length] ||
           first == pixels_.other[place + match.length]) &&
          Fits(match.code, place)) {
        next = {added, match.length + 1};
        strings_.Add(match.code, first, added);
      } else {
        strings_.Add(match.code, strings_.FirstOf(next.code), added);
      }
    } else {
      bool clear = !kDefer;
      if (!full_) {
        full_ = true;
        best = double(place - startPixels) / double(codes.BitCount() - startBits);
        windowPixels = place;
        windowBits = codes.BitCount();
        inWindow = 0;
      }
      if (++inWindow > kWindow) {
        const double rate = double(place - windowPixels) / double(codes.BitCount() - windowBits);
        clear |= rate * 100 < best * kPct;
        windowPixels = place;
        windowBits = codes.BitCount();
        inWindow = 0;
      }
      if (clear) {
        codes.Clear();
        strings_.Clear(1 << pixels.codeSize);
        full_ = false;
        startPixels = place;
        startBits = codes.BitCount();
        next = Longest(place);
      }
    }
    match = next;
  }
  return codes.Finish();
}

// The longest string that the pixels from `start` on may be. Where pixels may be either of two
// entries there are several on the way; those beyond the breadth are given up.
LzwEncoder::Match LzwEncoder::Longest(std::size_t start) const {
  std::array<int, 64> found = {pixels_.one[start], pixels_.other[start]};
  std::array<int, 64> longer = {};
  int number = found[0] == found[1] ? 1 : 2;
  std::size_t place = start + 1;
  for (; place < pixels_.one.size(); ++place) {
    const int one = pixels_.one[place];
    const int other = pixels_.other[place];
    int more = 0;
    for (int index = 0; index < number && more < kBreadth; ++index) {
      int code = strings_.Longer(found[index], one);
      if (code != LzwStrings::kNone)
        longer[more++] = code;
      if (one != other) {
        code = strings_.Longer(found[index], other);
        if (code != LzwStrings::kNone)
          longer[more++] = code;
      }
    }
    if (more == 0)
      break;
    std::copy_n(longer.begin(), more, found.begin());
    number = more;
  }
  return {found[0], place - start};
}

// The string to take at `start`.
LzwEncoder::Match LzwEncoder::Choose(std::size_t start, const Match& longest, Match& next) const {
  const std::size_t count = pixels_.one.size();
  if (start + longest.length == count)
    return longest;
  Match best = longest;
  next = Longest(start + longest.length);
  std::size_t end = longest.length + next.length;
  int code = longest.code;
  for (int back = 1; back <= kBack && static_cast<std::size_t>(back) < longest.length; ++back) {
    if (start + end == count)
      break;
    code = strings_.ShorterOf(code);
    const std::size_t length = longest.length - static_cast<std::size_t>(back);
    const Match after = Longest(start + length);
    if (length + after.length >= end + static_cast<std::size_t>(full_ ? kGainFull : kGain)) {
      end = length + after.length;
      best = {code, length};
      next = after;
    }
  }
  return best;
}

// Whether the pixels from `start` on may be a string.
bool LzwEncoder::Fits(int code, std::size_t start) const {
  const auto length = static_cast<std::size_t>(strings_.LengthOf(code));
  if (length > pixels_.one.size() - start)
    return false;
  for (std::size_t place = start + length; place > start; code = strings_.ShorterOf(code)) {
    --place;
    const int pixel = strings_.LastOf(code);
    if (pixel != pixels_.one[place] && pixel != pixels_.other[place])
      return false;
  }
  return true;
}
