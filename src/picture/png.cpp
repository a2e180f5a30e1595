#include "picture/png.h"

namespace animate {

std::optional<PictureFacts> ReadPng(Bytes& bytes) {
  // The names of chunks: IEND, IDAT, tRNS and acTL.
  constexpr std::uint32_t kEnd = 0x49454E44;
  constexpr std::uint32_t kData = 0x49444154;
  constexpr std::uint32_t kTransparency = 0x74524E53;
  constexpr std::uint32_t kAnimation = 0x6163544C;
  // A chunk is its length, its name, its data and a checksum.
  constexpr std::uint64_t kAroundData = 12;
  const auto isEnd = [&](std::uint64_t chunk) {
    return bytes.BigEndian(chunk, 4) == 0 && bytes.BigEndian(chunk + 4, 4) == kEnd;
  };
  PictureFacts facts;
  facts.size = SizeOf(bytes.BigEndian(16, 4), bytes.BigEndian(20, 4));
  constexpr unsigned kAlpha = 4;
  constexpr unsigned kPalette = 1;
  constexpr std::uint64_t kDepth = 24;
  constexpr std::uint64_t kColourType = 25;
  facts.isDeep = bytes.At(kDepth) > 8;
  if ((bytes.At(kColourType) & kAlpha) != 0) {
    facts.transparency = Transparency::kGradual;
  }
  std::uint64_t at = 8;
  const auto next = [&] { at += kAroundData + bytes.BigEndian(at, 4); };
  // What says that a colour is transparent stands before the data.
  for (; at + kAroundData <= bytes.Size() && bytes.BigEndian(at + 4, 4) != kData; next()) {
    facts.hasMore = facts.hasMore || bytes.BigEndian(at + 4, 4) == kAnimation;
    if (bytes.BigEndian(at + 4, 4) == kTransparency) {
      // Of a palette each colour has a degree of its own.
      facts.transparency =
          (bytes.At(kColourType) & kPalette) != 0 ? Transparency::kGradual : Transparency::kWhole;
    }
  }
  // Nearly every file ends with its last chunk; else something may follow it.
  if (bytes.Size() > kAroundData && isEnd(bytes.Size() - kAroundData)) {
    return facts;
  }
  for (; at + kAroundData <= bytes.Size(); next()) {
    if (isEnd(at)) {
      return facts;
    }
  }
  return std::nullopt;
}

}  // namespace animate
