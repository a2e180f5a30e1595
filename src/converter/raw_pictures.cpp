#include "converter/raw_pictures.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "gif/colour.h"

namespace animate {
namespace {

constexpr std::size_t kBytesAPixel = sizeof(::Colour);
static_assert(kBytesAPixel == 4);

// Makes each pixel wholly there or wholly not.
void Settle(RawPicture& picture) {
  constexpr std::uint8_t kWhole = 255;
  constexpr std::uint8_t kHalf = 128;
  for (::Colour& pixel : picture) {
    if (pixel.alpha != kWhole) {
      pixel = pixel.alpha < kHalf ? ::Colour{0, 0, 0, 0}
                                  : ::Colour{pixel.red, pixel.green, pixel.blue, kWhole};
    }
  }
}

}  // namespace

Words RawOutput() {
  return {"-pix_fmt", "rgba", "-c:v", "rawvideo", "-f", "rawvideo", "pipe:1"};
}

RawPictures::RawPictures(const Film& film, std::function<void(RawPicture&)> picture)
    : picture_(std::move(picture)),
      keepsFree_(film.freePixels == Film::FreePixels::kKept),
      pixels_(static_cast<std::size_t>(film.size.width) *
              static_cast<std::size_t>(film.size.height)) {}

void RawPictures::Take(std::string_view piece) {
  while (!piece.empty()) {
    current_.resize(pixels_);
    const std::size_t count = std::min(piece.size(), pixels_ * kBytesAPixel - filled_);
    std::memcpy(reinterpret_cast<char*>(current_.data()) + filled_, piece.data(), count);
    piece.remove_prefix(count);
    filled_ += count;
    if (filled_ == pixels_ * kBytesAPixel) {
      if (keepsFree_) {
        Settle(current_);
      }
      picture_(current_);
      filled_ = 0;
      ++count_;
    }
  }
}

std::string FingerprintOf(const RawPicture& picture) {
  // Fowler, Noll and Vo's, two pixels at a time.
  constexpr std::uint64_t kPrime = 0x100000001B3;
  std::uint64_t hash = 0xCBF29CE484222325;
  const auto add = [&](std::uint64_t pixels) {
    hash = (hash ^ pixels) * kPrime;
    hash ^= hash >> 32U;
  };
  std::size_t place = 1;
  for (; place < picture.size(); place += 2) {
    add(std::uint64_t{ToGifColour(picture[place - 1])} << 32U | ToGifColour(picture[place]));
  }
  if (place == picture.size()) {
    add(ToGifColour(picture.back()));
  }
  std::string text;
  for (std::size_t byte = 0; byte < kFingerprintSize; ++byte) {
    text += static_cast<char>(hash >> (8 * byte) & 0xFFU);
  }
  return text;
}

}  // namespace animate
