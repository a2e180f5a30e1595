#include "picture/tga.h"

namespace animate {
namespace {

// Places in the header.
constexpr std::uint64_t kHasPalette = 1;
constexpr std::uint64_t kKind = 2;
constexpr std::uint64_t kPaletteLength = 5;
constexpr std::uint64_t kPaletteBits = 7;
constexpr std::uint64_t kWidth = 12;
constexpr std::uint64_t kHeight = 14;
constexpr std::uint64_t kBits = 16;
constexpr std::uint64_t kDescriptor = 17;
constexpr std::uint64_t kHeaderSize = 18;

// The kinds are palette, colours and grey; 8 more when runs of pixels are packed.
constexpr unsigned kPacked = 8;

}  // namespace

bool IsTga(Bytes& bytes) {
  const unsigned kind = bytes.At(kKind) & ~kPacked;
  const unsigned bits = bytes.At(kBits);
  return bytes.Size() > kHeaderSize && bytes.At(kHasPalette) <= 1 && kind >= 1 && kind <= 3 &&
         (bits == 8 || bits == 15 || bits == 16 || bits == 24 || bits == 32);
}

std::optional<PictureFacts> ReadTga(Bytes& bytes) {
  const std::uint32_t width = bytes.LittleEndian(kWidth, 2);
  const std::uint32_t height = bytes.LittleEndian(kHeight, 2);
  const std::uint64_t pixel = (bytes.At(kBits) + 7) / 8;
  const std::uint64_t palette = bytes.At(kHasPalette) == 0
                                    ? 0
                                    : std::uint64_t{bytes.LittleEndian(kPaletteLength, 2)} *
                                          ((bytes.At(kPaletteBits) + 7) / 8);
  const std::uint64_t start = kHeaderSize + bytes.At(0) + palette;
  if ((bytes.At(kKind) & kPacked) == 0 && start + pixel * width * height > bytes.Size()) {
    return std::nullopt;
  }
  constexpr unsigned kAlphaBits = 0x0F;
  constexpr unsigned kWithAlpha = 32;
  const bool hasAlpha = bytes.At(kBits) == kWithAlpha && (bytes.At(kDescriptor) & kAlphaBits) != 0;
  return PictureFacts{.size = SizeOf(width, height),
                      .transparency = hasAlpha ? Transparency::kGradual : Transparency::kNone};
}

}  // namespace animate
