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

// Has the pixels of which there are three bytes each from `from` on. These may be the end of the
// picture itself: no pixel reaches to the bytes of the next.
void Spread(const std::uint8_t* from, RawPicture& picture) {
  for (::Colour& pixel : picture) {
    pixel = {from[0], from[1], from[2], 255};
    from += 3;
  }
}

}  // namespace

const char* NameOf(RawPixels pixels) {
  return pixels == RawPixels::kAll ? "rgba" : "rgb24";
}

std::size_t BytesOf(RawPixels pixels) {
  return pixels == RawPixels::kAll ? kBytesAPixel : kBytesAPixel - 1;
}

Words RawOutput(RawPixels pixels) {
  return {"-pix_fmt", NameOf(pixels), "-c:v", "rawvideo", "-f", "rawvideo", "pipe:1"};
}

RawPictures::RawPictures(const Film& film, RawPixels pixels,
                         std::function<void(RawPicture&)> picture)
    : picture_(std::move(picture)),
      keepsFree_(film.freePixels == Film::FreePixels::kKept),
      bytesAPixel_(BytesOf(pixels)),
      pixels_(static_cast<std::size_t>(film.size.width) *
              static_cast<std::size_t>(film.size.height)) {}

void RawPictures::Take(std::string_view piece) {
  const std::size_t bytes = pixels_ * bytesAPixel_;
  while (!piece.empty()) {
    current_.resize(pixels_);
    const std::size_t count = std::min(piece.size(), bytes - filled_);
    const std::size_t begin = pixels_ * kBytesAPixel - bytes;
    std::memcpy(reinterpret_cast<char*>(current_.data()) + begin + filled_, piece.data(), count);
    piece.remove_prefix(count);
    filled_ += count;
    if (filled_ == bytes) {
      if (bytesAPixel_ != kBytesAPixel) {
        Spread(reinterpret_cast<const std::uint8_t*>(current_.data()) + begin, current_);
      }
      if (keepsFree_) {
        Settle(current_);
      }
      picture_(current_);
      filled_ = 0;
      ++count_;
    }
  }
}

std::vector<std::uint8_t> Packed(const RawPicture& picture, RawPixels pixels) {
  std::vector<std::uint8_t> bytes(picture.size() * BytesOf(pixels));
  if (pixels == RawPixels::kAll) {
    std::memcpy(bytes.data(), picture.data(), bytes.size());
    return bytes;
  }
  std::uint8_t* to = bytes.data();
  for (const ::Colour& pixel : picture) {
    to[0] = pixel.red;
    to[1] = pixel.green;
    to[2] = pixel.blue;
    to += 3;
  }
  return bytes;
}

RawPicture Unpacked(const std::vector<std::uint8_t>& bytes, RawPixels pixels) {
  RawPicture picture(bytes.size() / BytesOf(pixels));
  if (pixels == RawPixels::kAll) {
    std::memcpy(picture.data(), bytes.data(), bytes.size());
  } else {
    Spread(bytes.data(), picture);
  }
  return picture;
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
