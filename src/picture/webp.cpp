#include "picture/webp.h"

#include <string>

namespace animate {

std::optional<PictureFacts> ReadWebp(Bytes& bytes) {
  // The file is a chunk of chunks; the kind of the first one says what stands in it.
  constexpr std::uint64_t kBeforeData = 8;
  if (kBeforeData + bytes.LittleEndian(4, 4) > bytes.Size()) {
    return std::nullopt;
  }
  constexpr std::uint64_t kData = 20;
  const std::string kind = bytes.Text(12, 4);
  PictureFacts facts;
  if (kind == "VP8X") {
    constexpr unsigned kAnimated = 0x02;
    constexpr unsigned kAlpha = 0x10;
    const unsigned flags = bytes.At(kData);
    facts.size = SizeOf(bytes.LittleEndian(kData + 4, 3) + 1, bytes.LittleEndian(kData + 7, 3) + 1);
    facts.transparency = (flags & kAlpha) != 0 ? Transparency::kGradual : Transparency::kNone;
    facts.fault = (flags & kAnimated) != 0 ? "is animated, which no converter decodes" : "";
  } else if (kind == "VP8L") {
    // After a byte of signature two numbers of 14 bits, and one that says that there is alpha.
    constexpr std::uint32_t kSide = 0x3FFF;
    constexpr std::uint32_t kAlpha = 1U << 28;
    const std::uint32_t bits = bytes.LittleEndian(kData + 1, 4);
    facts.size = SizeOf((bits & kSide) + 1, (bits >> 14 & kSide) + 1);
    facts.transparency = (bits & kAlpha) != 0 ? Transparency::kGradual : Transparency::kNone;
  } else if (kind == "VP8 ") {
    // After a frame's tag and a start code two numbers of 14 bits, each with two of its scale.
    constexpr std::uint32_t kSide = 0x3FFF;
    facts.size =
        SizeOf(bytes.LittleEndian(kData + 6, 2) & kSide, bytes.LittleEndian(kData + 8, 2) & kSide);
  }
  return facts;
}

}  // namespace animate
