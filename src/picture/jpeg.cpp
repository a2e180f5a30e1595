#include "picture/jpeg.h"

#include <string_view>

#include "picture/tiff_directory.h"

namespace animate {
namespace {

// Whether a marker begins a frame, which holds the picture's size.
bool IsJpegFrame(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

}  // namespace

std::optional<PictureFacts> ReadJpeg(Bytes& bytes) {
  constexpr unsigned kExif = 0xE1;
  constexpr std::string_view kExifStart = {"Exif\0\0", 6};
  constexpr unsigned kStartOfScan = 0xDA;
  constexpr unsigned kEndOfImage = 0xD9;
  const auto isEnd = [&](std::uint64_t at) {
    return bytes.At(at) == 0xFF && bytes.At(at + 1) == kEndOfImage;
  };
  std::optional<PictureFacts> facts;
  Turn turn = Turn::kNone;
  std::uint64_t turnAt = 0;
  std::uint64_t at = 2;
  while (at + 4 <= bytes.Size()) {
    const unsigned marker = bytes.At(at + 1);
    if (bytes.At(at) != 0xFF || marker == 0xFF) {
      ++at;
      continue;
    }
    if (IsJpegFrame(marker)) {
      facts = {.size = SizeOf(bytes.BigEndian(at + 7, 2), bytes.BigEndian(at + 5, 2)),
               .turn = turn,
               .turnAt = turnAt};
    }
    if (marker == kExif && turnAt == 0 && bytes.Text(at + 4, kExifStart.size()) == kExifStart) {
      turnAt = at + 4;
      TiffDirectory exif(bytes, turnAt + kExifStart.size());
      turn = TurnOf(exif.Value(exif.Find(kOrientationTag)));
    }
    if (marker == kStartOfScan) {
      break;
    }
    at += 2 + bytes.BigEndian(at + 2, 2);
  }
  if (bytes.Size() > at && isEnd(bytes.Size() - 2)) {
    return facts;
  }
  // Something may follow the picture.
  for (; at + 2 <= bytes.Size(); ++at) {
    if (isEnd(at)) {
      return facts;
    }
  }
  return std::nullopt;
}

}  // namespace animate
