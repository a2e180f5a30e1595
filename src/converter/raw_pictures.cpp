#include "converter/raw_pictures.h"

#include <cstdint>
#include <utility>

namespace animate {
namespace {

constexpr std::size_t kBytesAPixel = 4;

RawPicture PictureOf(const std::string& bytes) {
  constexpr std::uint8_t kHalf = 128;
  const auto value = [&](std::size_t place) { return static_cast<std::uint8_t>(bytes[place]); };
  RawPicture picture(bytes.size() / kBytesAPixel);
  std::size_t place = 0;
  for (::Colour& pixel : picture) {
    pixel = value(place + 3) < kHalf
                ? ::Colour{0, 0, 0, 0}
                : ::Colour{value(place), value(place + 1), value(place + 2), 255};
    place += kBytesAPixel;
  }
  return picture;
}

}  // namespace

Words RawOutput() {
  return {"-pix_fmt", "rgba", "-c:v", "rawvideo", "-f", "rawvideo", "pipe:1"};
}

RawPictures::RawPictures(const Film& film, std::function<void(const RawPicture&)> picture)
    : picture_(std::move(picture)),
      size_(kBytesAPixel * static_cast<std::size_t>(film.size.width) *
            static_cast<std::size_t>(film.size.height)) {}

void RawPictures::Take(std::string_view piece) {
  while (!piece.empty()) {
    const std::string_view part = piece.substr(0, size_ - bytes_.size());
    bytes_ += part;
    piece.remove_prefix(part.size());
    if (bytes_.size() == size_) {
      picture_(PictureOf(bytes_));
      bytes_.clear();
      ++count_;
    }
  }
}

std::string FingerprintOf(const RawPicture& picture) {
  // Fowler, Noll and Vo's, a pixel at a time.
  constexpr std::uint64_t kPrime = 0x100000001B3;
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const ::Colour& pixel : picture) {
    const std::uint32_t value = std::uint32_t{pixel.red} | std::uint32_t{pixel.green} << 8U |
                                std::uint32_t{pixel.blue} << 16U |
                                std::uint32_t{pixel.alpha} << 24U;
    hash = (hash ^ value) * kPrime;
    hash ^= hash >> 32U;
  }
  std::string text;
  for (std::size_t byte = 0; byte < kFingerprintSize; ++byte) {
    text += static_cast<char>(hash >> (8 * byte) & 0xFFU);
  }
  return text;
}

}  // namespace animate
