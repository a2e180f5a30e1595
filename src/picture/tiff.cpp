#include "picture/tiff.h"

#include <algorithm>
#include <cstdint>

#include "picture/tiff_directory.h"

namespace animate {
namespace {

// The tags of a directory's entries. The data are in strips or in tiles.
constexpr unsigned kWidth = 256;
constexpr unsigned kHeight = 257;
constexpr unsigned kStripOffsets = 273;
constexpr unsigned kStripLengths = 279;
constexpr unsigned kExtraSamples = 338;
constexpr unsigned kTileOffsets = 324;
constexpr unsigned kTileLengths = 325;

// Whether every piece of data that two entries tell of is in the file.
bool HasItsData(Bytes& bytes, TiffDirectory& directory, unsigned offsetsTag, unsigned lengthsTag) {
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

std::optional<PictureFacts> ReadTiff(Bytes& bytes) {
  TiffDirectory directory(bytes);
  if (!directory.IsWhole() || !HasItsData(bytes, directory, kStripOffsets, kStripLengths) ||
      !HasItsData(bytes, directory, kTileOffsets, kTileLengths)) {
    return std::nullopt;
  }
  return PictureFacts{.size = SizeOf(directory.Value(directory.Find(kWidth)),
                                     directory.Value(directory.Find(kHeight))),
                      .turn = TurnOf(directory.Value(directory.Find(kOrientationTag))),
                      .transparency = directory.Find(kExtraSamples) != 0 ? Transparency::kGradual
                                                                         : Transparency::kNone};
}

}  // namespace animate
