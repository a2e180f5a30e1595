#include "picture/tiff.h"

#include <algorithm>
#include <cstdint>

namespace animate {
namespace {

// The tags of a directory's entries. The data are in strips or in tiles.
constexpr unsigned kWidth = 256;
constexpr unsigned kHeight = 257;
constexpr unsigned kStripOffsets = 273;
constexpr unsigned kStripLengths = 279;
constexpr unsigned kTileOffsets = 324;
constexpr unsigned kTileLengths = 325;

// The first directory of a file: entries of 12 bytes, each with a tag, a type, a number of values,
// and the values themselves where they have room, else their place.
class Directory {
 public:
  explicit Directory(Bytes& bytes) : bytes_(bytes), isLittle_(bytes.At(0) == 'I') {
    start_ = Number(4, 4);
    count_ = Number(start_, 2);
  }

  // Whether all entries are in the file, and the place of the next directory after them.
  bool IsWhole() const { return start_ + 2 + 12ULL * count_ + 4 <= bytes_.Size(); }

  // Where the entry with a tag is; 0 when there is none.
  std::uint64_t Find(unsigned tag) {
    for (std::uint64_t entry = start_ + 2; entry < start_ + 2 + 12ULL * count_; entry += 12) {
      if (Number(entry, 2) == tag) {
        return entry;
      }
    }
    return 0;
  }

  std::uint32_t Count(std::uint64_t entry) { return Number(entry + 4, 4); }

  // Value `index` of an entry; 0 when there is no entry.
  std::uint32_t Value(std::uint64_t entry, std::uint32_t index = 0) {
    if (entry == 0) {
      return 0;
    }
    constexpr unsigned kShort = 3;
    const int width = Number(entry + 2, 2) == kShort ? 2 : 4;
    const bool isInside = Count(entry) * static_cast<std::uint64_t>(width) <= 4;
    const std::uint64_t first = isInside ? entry + 8 : Number(entry + 8, 4);
    return Number(first + std::uint64_t{index} * static_cast<unsigned>(width), width);
  }

 private:
  std::uint32_t Number(std::uint64_t offset, int count) {
    return isLittle_ ? bytes_.LittleEndian(offset, count) : bytes_.BigEndian(offset, count);
  }

  Bytes& bytes_;
  bool isLittle_;
  std::uint64_t start_ = 0;
  std::uint32_t count_ = 0;
};

// Whether every piece of data that two entries tell of is in the file.
bool HasItsData(Bytes& bytes, Directory& directory, unsigned offsetsTag, unsigned lengthsTag) {
  const std::uint64_t offsets = directory.Find(offsetsTag);
  const std::uint64_t lengths = directory.Find(lengthsTag);
  const std::uint64_t parts = offsets != 0 && lengths != 0 ? directory.Count(offsets) : 0;
  for (std::uint32_t part = 0; part < std::min(parts, bytes.Size()); ++part) {
    const std::uint64_t end =
        std::uint64_t{directory.Value(offsets, part)} + directory.Value(lengths, part);
    if (end > bytes.Size()) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::optional<Size> ReadTiff(Bytes& bytes) {
  Directory directory(bytes);
  if (!directory.IsWhole() || !HasItsData(bytes, directory, kStripOffsets, kStripLengths) ||
      !HasItsData(bytes, directory, kTileOffsets, kTileLengths)) {
    return std::nullopt;
  }
  return SizeOf(directory.Value(directory.Find(kWidth)), directory.Value(directory.Find(kHeight)));
}

}  // namespace animate
