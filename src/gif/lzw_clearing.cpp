#include "gif/lzw_clearing.h"

namespace {

// Noise comes down to its mean alone; clearing there costs and gains nothing.
constexpr double kTolerance = 0.97;

}  // namespace

void LzwClearing::Restart(std::size_t pixels, std::uint64_t bits) {
  table_ = {pixels, bits};
  codes_ = 0;
}

bool LzwClearing::Pays(std::size_t pixels, std::uint64_t bits) {
  if (codes_++ == 0) {
    rateOfFilling_ = table_.Rate(pixels, bits);
    last_ = {pixels, bits};
    return false;
  }
  if (codes_ <= window_) {
    return false;
  }
  const double rate = last_.Rate(pixels, bits);
  last_ = {pixels, bits};
  codes_ = 1;
  return rate < rateOfFilling_ * kTolerance;
}
