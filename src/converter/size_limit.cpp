#include "converter/size_limit.h"

#include <algorithm>
#include <cmath>

#include "converter/encoding.h"
#include "film/failure.h"
#include "platform/file_status.h"

namespace animate {

Film EncodeWithin(std::uint64_t most, const Converter& converter, const Film& film,
                  const Staging& staging, const std::filesystem::path& target,
                  const std::function<void(std::size_t)>& progress) {
  constexpr int kLowestQuality = 40;
  constexpr int kWhole = 20;
  constexpr int kLeast = 5;
  Film tried = film;
  const auto encode = [&](int twentieths, int quality) {
    tried = Shrunk(film, twentieths * 5);
    tried.quality = quality;
    Encode(converter, tried, staging, target, progress);
    return platform::QueryStatus(target).size;
  };
  // Only what is lost can be less.
  const int lowest =
      film.format->hasQuality ? std::min(kLowestQuality, film.quality) : film.quality;
  const auto bestOf = [&](int twentieths) {
    return LargestWithin(most, lowest, film.quality,
                         [&](int quality) { return encode(twentieths, quality); });
  };
  int twentieths = kWhole;
  int quality = bestOf(twentieths);
  if (quality < lowest) {
    twentieths =
        LargestWithin(most, kLeast, kWhole - 1, [&](int count) { return encode(count, lowest); });
    if (twentieths < kLeast) {
      throw Failure("--max-size: not even a quarter of each side of the pictures fits");
    }
    quality = std::max(bestOf(twentieths), lowest);
  }
  // What was tried last need not be what is best, nor the same pictures the same bytes.
  if (tried.quality != quality || tried.planned != Shrunk(film, twentieths * 5).planned) {
    encode(twentieths, quality);
  }
  if (platform::QueryStatus(target).size > most) {
    throw Failure("--max-size: what fitted once did not when it was made again");
  }
  return tried;
}

Film Shrunk(const Film& film, int percent) {
  Film shrunk = film;
  const auto side = [&](int length) {
    return std::max(1, static_cast<int>(std::lround(length * percent / 100.0)));
  };
  SetPlanned(shrunk, {side(film.planned.width), side(film.planned.height)});
  return shrunk;
}

int LargestWithin(std::uint64_t most, int low, int high,
                  const std::function<std::uint64_t(int)>& size) {
  std::uint64_t above = size(high);
  if (above <= most) {
    return high;
  }
  std::uint64_t below = high == low ? above : size(low);
  if (below > most) {
    return low - 1;
  }
  while (low + 1 < high) {
    // Sizes grow about evenly in their logarithm.
    const auto place = [](std::uint64_t bytes) { return std::log(static_cast<double>(bytes) + 1); };
    const double part = (place(most) - place(below)) / (place(above) - place(below));
    const int next = std::clamp(low + static_cast<int>(part * (high - low)), low + 1, high - 1);
    const std::uint64_t bytes = size(next);
    if (bytes <= most) {
      low = next;
      below = bytes;
    } else {
      high = next;
      above = bytes;
    }
  }
  return low;
}

}  // namespace animate
