// The list of properties that TIFF files, and the EXIF data of other types, begin with.
#pragma once

#include <cstdint>

#include "picture/bytes.h"

namespace animate {

// The first directory of a file: entries of 12 bytes, each with a tag, a type, a number of values,
// and the values themselves where they have room, else their place.
class TiffDirectory {
 public:
  // Places in it count from `base` on, where its header is.
  explicit TiffDirectory(Bytes& bytes, std::uint64_t base = 0);

  // Whether all entries are in the file, and the place of the next directory after them.
  bool IsWhole() const { return base_ + start_ + 2 + 12ULL * count_ + 4 <= bytes_.Size(); }

  // Whether another directory follows, of another picture.
  bool HasNext() { return Number(start_ + 2 + 12ULL * count_, 4) != 0; }

  // Where the entry with a tag is; 0 when there is none.
  std::uint64_t Find(unsigned tag);

  // How many values an entry has.
  std::uint32_t Count(std::uint64_t entry) { return Number(entry + 4, 4); }

  // Value `index` of an entry; 0 when there is no entry.
  std::uint32_t Value(std::uint64_t entry, std::uint32_t index = 0);

 private:
  std::uint32_t Number(std::uint64_t offset, int count) {
    return isLittle_ ? bytes_.LittleEndian(base_ + offset, count)
                     : bytes_.BigEndian(base_ + offset, count);
  }

  Bytes& bytes_;
  std::uint64_t base_;
  bool isLittle_;
  std::uint64_t start_ = 0;
  std::uint32_t count_ = 0;
};

// The tag of the orientation, which is a Turn.
constexpr unsigned kOrientationTag = 274;

}  // namespace animate
