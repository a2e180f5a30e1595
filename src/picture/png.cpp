#include "picture/png.h"

namespace animate {

std::optional<Size> ReadPng(Bytes& bytes) {
  constexpr std::uint32_t kEnd = 0x49454E44;
  // A chunk is its length, its name, its data and a checksum.
  constexpr std::uint64_t kAroundData = 12;
  const auto isEnd = [&](std::uint64_t chunk) {
    return bytes.BigEndian(chunk, 4) == 0 && bytes.BigEndian(chunk + 4, 4) == kEnd;
  };
  const Size size = SizeOf(bytes.BigEndian(16, 4), bytes.BigEndian(20, 4));
  // Nearly every file ends with its last chunk; else something may follow it.
  if (bytes.Size() > kAroundData && isEnd(bytes.Size() - kAroundData)) {
    return size;
  }
  for (std::uint64_t at = 8; at + kAroundData <= bytes.Size();
       at += kAroundData + bytes.BigEndian(at, 4)) {
    if (isEnd(at)) {
      return size;
    }
  }
  return std::nullopt;
}

}  // namespace animate
