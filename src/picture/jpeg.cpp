#include "picture/jpeg.h"

namespace animate {
namespace {

// Whether a marker begins a frame, which holds the picture's size.
bool IsJpegFrame(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

}  // namespace

std::optional<Size> ReadJpeg(Bytes& bytes) {
  constexpr unsigned kStartOfScan = 0xDA;
  constexpr unsigned kEndOfImage = 0xD9;
  const auto isEnd = [&](std::uint64_t at) {
    return bytes.At(at) == 0xFF && bytes.At(at + 1) == kEndOfImage;
  };
  std::optional<Size> size;
  std::uint64_t at = 2;
  while (at + 4 <= bytes.Size()) {
    const unsigned marker = bytes.At(at + 1);
    if (bytes.At(at) != 0xFF || marker == 0xFF) {
      ++at;
      continue;
    }
    if (IsJpegFrame(marker)) {
      size = SizeOf(bytes.BigEndian(at + 7, 2), bytes.BigEndian(at + 5, 2));
    }
    if (marker == kStartOfScan) {
      break;
    }
    at += 2 + bytes.BigEndian(at + 2, 2);
  }
  if (bytes.Size() > at && isEnd(bytes.Size() - 2)) {
    return size;
  }
  // Something may follow the picture.
  for (; at + 2 <= bytes.Size(); ++at) {
    if (isEnd(at)) {
      return size;
    }
  }
  return std::nullopt;
}

}  // namespace animate
