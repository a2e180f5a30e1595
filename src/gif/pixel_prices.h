// What the pixels of a GIF image cost lately.
#pragma once

#include <algorithm>

#include "gif/lossy_lzw_encoder.h"

class PixelPrices {
 public:
  // `bitPrice` is the error that is worth a bit, above 0.
  explicit PixelPrices(float bitPrice)
      : bitPrice_(bitPrice),
        drawn_(kFirstDrawnBits * bitPrice),
        staying_(kFirstStayingBits * bitPrice) {}

  // What it is worth to have reached a pixel: what it will cost otherwise.
  float Worth(const LossyPixel& pixel) const {
    const auto error = static_cast<float>(pixel.staying - pixel.Least());
    return std::min(drawn_, error * pixel.weight + staying_);
  }

  // Learns from a string of `length` pixels, of which so many are drawn, with such errors in all.
  void Learn(int length, int drawn, float errors) {
    const float bits = bitPrice_ * kBitsOfCode / static_cast<float>(length);
    if (drawn > 0) {
      Adjust(drawn_, drawn, bits + errors / static_cast<float>(drawn));
    }
    if (drawn < length) {
      Adjust(staying_, length - drawn, bits);
    }
  }

 private:
  static constexpr float kFirstDrawnBits = 2;
  static constexpr float kFirstStayingBits = 0.1F;

  // Brings a price nearer to what so many pixels have cost each.
  void Adjust(float& price, int pixels, float each) const {
    constexpr float kNew = 0.004F;
    constexpr float kMostBits = 6;
    constexpr int kMostAtOnce = 32;
    const float share = kNew * static_cast<float>(std::min(pixels, kMostAtOnce));
    price += (std::min(each, kMostBits * bitPrice_) - price) * share / (1 + share);
  }

  float bitPrice_;
  // Of one that is drawn, and of one that stays.
  float drawn_;
  float staying_;
};
