#include "picture/tiff.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "picture/tiff_directory.h"

namespace animate {
namespace {

// The tags of a directory's entries.
constexpr unsigned kWidth = 256;
constexpr unsigned kHeight = 257;
constexpr unsigned kBits = 258;
constexpr unsigned kCompression = 259;
constexpr unsigned kPhotometric = 262;
constexpr unsigned kStripOffsets = 273;
constexpr unsigned kStripLengths = 279;
constexpr unsigned kTileOffsets = 324;
constexpr unsigned kExtraSamples = 338;
constexpr unsigned kSampleFormat = 339;

// Whether every strip of data is in the file.
bool HasItsData(Bytes& bytes, TiffDirectory& directory) {
  const std::uint64_t offsets = directory.Find(kStripOffsets);
  const std::uint64_t lengths = directory.Find(kStripLengths);
  const std::uint64_t strips = offsets != 0 && lengths != 0 ? directory.Count(offsets) : 0;
  for (std::uint32_t strip = 0; strip < std::min(strips, bytes.Size()); ++strip) {
    const std::uint64_t end =
        std::uint64_t{directory.Value(offsets, strip)} + directory.Value(lengths, strip);
    if (end > bytes.Size()) {
      return false;
    }
  }
  return true;
}

// What converters refuse to decode, or decode wrong without a word.
std::string FaultOf(TiffDirectory& directory) {
  const auto value = [&](unsigned tag, std::uint32_t without) {
    const std::uint64_t entry = directory.Find(tag);
    return entry == 0 ? without : directory.Value(entry);
  };
  const auto isOneOf = [](std::uint32_t number, std::initializer_list<std::uint32_t> numbers) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
  };
  const std::uint32_t compression = value(kCompression, 1);
  if (isOneOf(compression, {6, 7})) {
    return "is a TIFF with JPEG inside, which converters show wrong";
  }
  if (!isOneOf(compression, {1, 2, 3, 4, 5, 8, 32773, 32946, 34925})) {
    return "is a TIFF with a compression that converters do not know";
  }
  if (directory.Find(kTileOffsets) != 0) {
    return "is a TIFF with tiles, which converters show wrong";
  }
  if (!isOneOf(value(kSampleFormat, 1), {1, 4})) {
    return "is a TIFF with signed or floating-point values, which converters show wrong";
  }
  if (!isOneOf(value(kBits, 1), {1, 2, 4, 8, 16})) {
    return "is a TIFF with " + std::to_string(value(kBits, 1)) +
           " bits a value, which converters do not decode";
  }
  if (value(kPhotometric, 0) > 5) {
    return "is a TIFF whose colours are not red, green and blue, which converters show wrong";
  }
  if (value(kExtraSamples, 0) == 1) {
    return "is a TIFF whose colours are multiplied with its transparency, which converters show wrong";
  }
  return "";
}

}  // namespace

std::optional<PictureFacts> ReadTiff(Bytes& bytes) {
  TiffDirectory directory(bytes);
  if (!directory.IsWhole() || !HasItsData(bytes, directory)) {
    return std::nullopt;
  }
  return PictureFacts{.size = SizeOf(directory.Value(directory.Find(kWidth)),
                                     directory.Value(directory.Find(kHeight))),
                      .turn = TurnOf(directory.Value(directory.Find(kOrientationTag))),
                      .transparency = directory.Find(kExtraSamples) != 0 ? Transparency::kGradual
                                                                         : Transparency::kNone,
                      .isDeep = directory.Value(directory.Find(kBits)) > 8,
                      .hasMore = directory.HasNext(),
                      .fault = FaultOf(directory)};
}

std::optional<PictureFacts> ReadBigTiff(Bytes&) {
  return PictureFacts{.size = {1, 1}, .fault = "is a BigTIFF, which converters do not decode"};
}

}  // namespace animate
