#include "picture/bmp.h"

#include <algorithm>

namespace animate {

std::optional<PictureFacts> ReadBmp(Bytes& bytes) {
  constexpr std::uint32_t kOldHeader = 12;
  if (bytes.LittleEndian(14, 4) == kOldHeader) {
    return PictureFacts{.size = SizeOf(bytes.LittleEndian(18, 2), bytes.LittleEndian(20, 2))};
  }
  // A negative height says that the rows run from the top.
  const std::uint32_t storedHeight = bytes.LittleEndian(22, 4);
  const std::uint32_t height = storedHeight > 0x7FFFFFFF ? 0U - storedHeight : storedHeight;
  const std::uint32_t width = bytes.LittleEndian(18, 4);
  // Rows of whole 32-bit words, unless they are compressed.
  constexpr std::uint32_t kPlain = 0;
  constexpr std::uint32_t kMasked = 3;
  const std::uint32_t compression = bytes.LittleEndian(30, 4);
  const std::uint64_t row = (std::uint64_t{width} * bytes.LittleEndian(28, 2) + 31) / 32 * 4;
  if ((compression == kPlain || compression == kMasked) && row != 0 &&
      height >
          (bytes.Size() - std::min<std::uint64_t>(bytes.LittleEndian(10, 4), bytes.Size())) / row) {
    return std::nullopt;
  }
  // Of 32 bits those that belong to no colour may be a mask of the transparency.
  constexpr unsigned kAlphaMask = 66;
  const bool hasMask = compression == kMasked && bytes.LittleEndian(14, 4) >= 56 &&
                       bytes.LittleEndian(kAlphaMask, 4) != 0;
  return PictureFacts{.size = SizeOf(width, height),
                      .transparency = hasMask ? Transparency::kGradual : Transparency::kNone};
}

}  // namespace animate
