// Decides when an LZW encoder's full table is to be cleared.
#pragma once

#include <cstddef>
#include <cstdint>

// A full table serves as long as the pixels are like those that filled it. So it is cleared when it
// takes more bits a pixel than it did on the whole while it was filled.
class LzwClearing {
 public:
  // So many codes tell how well a full table serves. Fewer would have it cleared by chance; where
  // what repeats itself is soon over, more would have that too late.
  static constexpr int kUsualWindow = 192;
  static constexpr int kShortWindow = 8;

  // `window` is 1 or more.
  explicit LzwClearing(int window) : window_(window) {}

  // The table is empty, with so many pixels and bits written.
  void Restart(std::size_t pixels, std::uint64_t bits);

  // Has to be asked after each code that is written with a full table. Returns whether to clear it.
  bool Pays(std::size_t pixels, std::uint64_t bits);

 private:
  // Pixels for a bit since some place.
  struct Stretch {
    std::size_t pixels = 0;
    std::uint64_t bits = 0;
    double Rate(std::size_t pixelsNow, std::uint64_t bitsNow) const {
      return static_cast<double>(pixelsNow - pixels) / static_cast<double>(bitsNow - bits);
    }
  };

  int window_;
  Stretch table_;
  Stretch last_;
  // The codes of the last stretch; none while the table grows.
  int codes_ = 0;
  double rateOfFilling_ = 0;
};
