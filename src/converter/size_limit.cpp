#include "converter/size_limit.h"

#include <algorithm>
#include <cmath>

#include "converter/encoding.h"
#include "converter/recipe.h"
#include "film/failure.h"
#include "platform/file_status.h"

namespace animate {
namespace {

// Encodes one film in different ways, until it fits.
class Fitting {
 public:
  Fitting(std::uint64_t most, const Film& film, const std::filesystem::path& target,
          const std::function<void(const Film&)>& encode)
      : most_(most), film_(film), target_(target), encode_(encode) {}

  // The best film that fits, which is then the last that was encoded.
  Film Best() {
    FitQualityAndSize();
    if (RecipeFor(*film_.format).within != nullptr && best_.quality < film_.quality) {
      FillUp();
    }
    // What was tried last need not be what is best, nor the same pictures the same bytes.
    if (!isBestLast_ && Try(best_) > most_) {
      throw Failure("--max-size: what fitted once did not when it was made again");
    }
    return best_;
  }

 private:
  // The number of bytes of a film, which is remembered when it fits and uses more than what did
  // before.
  std::uint64_t Try(const Film& film) {
    encode_(film);
    const std::uint64_t bytes = platform::QueryStatus(target_).size;
    isBestLast_ = bytes <= most_ && bytes >= bytes_;
    if (isBestLast_) {
      best_ = film;
      bytes_ = bytes;
    }
    return bytes;
  }

  std::uint64_t Try(int twentieths, int quality) {
    Film film = Shrunk(film_, twentieths * 5);
    film.quality = quality;
    return Try(film);
  }

  void FitQualityAndSize() {
    constexpr int kLowestQuality = 40;
    constexpr int kWhole = 20;
    constexpr int kLeast = 5;
    // Only what is lost can be less.
    const int lowest =
        film_.format->hasQuality ? std::min(kLowestQuality, film_.quality) : film_.quality;
    const auto hasQuality = [&](int twentieths) {
      return LargestWithin(most_, lowest, film_.quality,
                           [&](int quality) { return Try(twentieths, quality); }) >= lowest;
    };
    if (hasQuality(kWhole)) {
      return;
    }
    const int twentieths =
        LargestWithin(most_, kLeast, kWhole - 1, [&](int count) { return Try(count, lowest); });
    if (twentieths < kLeast) {
      throw Failure("--max-size: not even a quarter of each side of the pictures fits");
    }
    hasQuality(twentieths);
  }

  // Uses what the steps of the quality leave unused.
  void FillUp() {
    // With few bits more the pictures would be no better.
    constexpr double kWorthIt = 0.8;
    constexpr double kEnough = 0.9;
    constexpr int kTries = 5;
    const auto used = [&] { return static_cast<double>(bytes_) / static_cast<double>(most_); };
    if (used() > kWorthIt) {
      return;
    }
    const double whole =
        static_cast<double>(most_) * 8 * film_.rate.value / static_cast<double>(film_.shown.size());
    double low = 0;
    double high = 2;
    double part = 0.95;
    for (int tries = 0; tries < kTries && used() < kEnough; ++tries) {
      Film film = best_;
      film.bitRate = whole * part;
      (Try(film) <= most_ ? low : high) = part;
      part = (low + high) / 2;
    }
  }

  std::uint64_t most_;
  const Film& film_;
  const std::filesystem::path& target_;
  const std::function<void(const Film&)>& encode_;
  Film best_;
  std::uint64_t bytes_ = 0;
  bool isBestLast_ = false;
};

}  // namespace

Film EncodeWithin(std::uint64_t most, const Converter& converter, const Film& film,
                  const Staging& staging, const std::filesystem::path& target,
                  const std::function<void(std::size_t)>& progress) {
  const auto encode = [&](const Film& tried) {
    Encode(converter, tried, staging, target, {progress});
  };
  return Fitting(most, film, target, encode).Best();
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
