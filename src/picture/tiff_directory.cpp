#include "picture/tiff_directory.h"

namespace animate {

TiffDirectory::TiffDirectory(Bytes& bytes, std::uint64_t base)
    : bytes_(bytes), base_(base), isLittle_(bytes.At(base) == 'I') {
  start_ = Number(4, 4);
  count_ = Number(start_, 2);
}

std::uint64_t TiffDirectory::Find(unsigned tag) {
  for (std::uint64_t entry = start_ + 2; entry < start_ + 2 + 12ULL * count_; entry += 12) {
    if (Number(entry, 2) == tag) {
      return entry;
    }
  }
  return 0;
}

std::uint32_t TiffDirectory::Value(std::uint64_t entry, std::uint32_t index) {
  if (entry == 0) {
    return 0;
  }
  constexpr unsigned kShort = 3;
  const int width = Number(entry + 2, 2) == kShort ? 2 : 4;
  const bool isInside = Count(entry) * static_cast<std::uint64_t>(width) <= 4;
  const std::uint64_t first = isInside ? entry + 8 : Number(entry + 8, 4);
  return Number(first + std::uint64_t{index} * static_cast<unsigned>(width), width);
}

}  // namespace animate
