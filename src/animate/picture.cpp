#include "animate/picture.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "animate/failure.h"
#include "animate/file_bytes.h"
#include "animate/sequence.h"
#include "platform/file_system.h"

namespace animate {
namespace {

// The readers return nothing for a file that is cut.
using Found = std::optional<Size>;

Size MakeSize(std::uint32_t width, std::uint32_t height) {
  constexpr std::uint32_t kMost = 0x7FFFFFFF;
  return {static_cast<int>(std::min(width, kMost)), static_cast<int>(std::min(height, kMost))};
}

Found ReadPng(Bytes& bytes) {
  constexpr std::uint32_t kEnd = 0x49454E44;
  // A chunk is its length, its name, its data and a checksum.
  constexpr std::uint64_t kAroundData = 12;
  const Size size = MakeSize(bytes.BigEndian(16, 4), bytes.BigEndian(20, 4));
  if (bytes.Size() > kAroundData && bytes.BigEndian(bytes.Size() - 8, 4) == kEnd) {
    return size;
  }
  for (std::uint64_t at = 8; at + kAroundData <= bytes.Size();
       at += kAroundData + bytes.BigEndian(at, 4)) {
    if (bytes.BigEndian(at + 4, 4) == kEnd) {
      return size;
    }
  }
  return std::nullopt;
}

// Whether a marker begins a frame, which holds the picture's size.
bool IsJpegFrame(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

Found ReadJpeg(Bytes& bytes) {
  constexpr unsigned kStartOfScan = 0xDA;
  constexpr unsigned kEndOfImage = 0xD9;
  const auto isEnd = [&](std::uint64_t at) {
    return bytes.At(at) == 0xFF && bytes.At(at + 1) == kEndOfImage;
  };
  Found size;
  std::uint64_t at = 2;
  while (at + 4 <= bytes.Size()) {
    const unsigned marker = bytes.At(at + 1);
    if (bytes.At(at) != 0xFF || marker == 0xFF) {
      ++at;
      continue;
    }
    if (IsJpegFrame(marker)) {
      size = MakeSize(bytes.BigEndian(at + 7, 2), bytes.BigEndian(at + 5, 2));
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

std::uint64_t AfterGifColours(unsigned flags) {
  return (flags & 0x80) != 0 ? std::uint64_t{3} << ((flags & 7) + 1) : 0;
}

// Follows the blocks to the trailer. What no GIF holds ends it too: the converter decides there.
std::optional<GifContent> FollowGif(Bytes& bytes) {
  constexpr unsigned kGraphicControl = 0xF9;
  GifContent content;
  content.size = MakeSize(bytes.LittleEndian(6, 2), bytes.LittleEndian(8, 2));
  std::uint64_t at = 13 + AfterGifColours(bytes.At(10));
  while (at < bytes.Size()) {
    const unsigned block = bytes.At(at);
    if (block == ',') {
      ++content.images;
      at += 11 + AfterGifColours(bytes.At(at + 9));
    } else if (block == '!') {
      content.delay += bytes.At(at + 1) == kGraphicControl ? bytes.LittleEndian(at + 4, 2) : 0;
      at += 2;
    } else {
      return content;
    }
    // Sub-blocks, each after its length, up to one of length 0.
    for (unsigned length = bytes.At(at); length != 0; length = bytes.At(at)) {
      at += length + 1;
    }
    ++at;
  }
  return std::nullopt;
}

Found ReadGif(Bytes& bytes) {
  const std::optional<GifContent> content = FollowGif(bytes);
  return content ? Found(content->size) : std::nullopt;
}

Found ReadBmp(Bytes& bytes) {
  constexpr std::uint32_t kOldHeader = 12;
  if (bytes.LittleEndian(14, 4) == kOldHeader) {
    return MakeSize(bytes.LittleEndian(18, 2), bytes.LittleEndian(20, 2));
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
  return MakeSize(width, height);
}

Found ReadTiff(Bytes& bytes) {
  const bool isLittle = bytes.At(0) == 'I';
  const auto number = [&](std::uint64_t offset, int count) {
    return isLittle ? bytes.LittleEndian(offset, count) : bytes.BigEndian(offset, count);
  };
  const std::uint64_t directory = number(4, 4);
  const std::uint32_t entries = number(directory, 2);
  // After the entries comes the place of the next directory.
  if (directory + 2 + 12ULL * entries + 4 > bytes.Size()) {
    return std::nullopt;
  }
  // Where value `index` of an entry is: in the entry itself when all have room there.
  constexpr unsigned kShort = 3;
  const auto value = [&](std::uint64_t entry, std::uint32_t index) {
    const int width = number(entry + 2, 2) == kShort ? 2 : 4;
    const bool isInside = number(entry + 4, 4) * static_cast<std::uint64_t>(width) <= 4;
    const std::uint64_t first = isInside ? entry + 8 : number(entry + 8, 4);
    return number(first + std::uint64_t{index} * static_cast<unsigned>(width), width);
  };
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint64_t offsets = 0;
  std::uint64_t lengths = 0;
  for (std::uint32_t index = 0; index < entries; ++index) {
    const std::uint64_t entry = directory + 2 + 12ULL * index;
    switch (number(entry, 2)) {
      case 256:
        width = value(entry, 0);
        break;
      case 257:
        height = value(entry, 0);
        break;
      case 273:
      case 324:
        offsets = entry;
        break;
      case 279:
      case 325:
        lengths = entry;
        break;
      default:
        break;
    }
  }
  const std::uint64_t parts = offsets != 0 && lengths != 0 ? number(offsets + 4, 4) : 0;
  for (std::uint64_t part = 0; part < std::min(parts, bytes.Size()); ++part) {
    const auto index = static_cast<std::uint32_t>(part);
    if (std::uint64_t{value(offsets, index)} + value(lengths, index) > bytes.Size()) {
      return std::nullopt;
    }
  }
  return MakeSize(width, height);
}

struct PictureType {
  // As a pattern of names has it.
  const char* extension;
  const char* name;
  std::string start;
  Found (*read)(Bytes& bytes);
};

const PictureType* TypeOf(const std::string& start) {
  static const PictureType kTypes[] = {{"png", "PNG", "\x89PNG\r\n\x1A\n", ReadPng},
                                       {"jpg", "JPEG", "\xFF\xD8\xFF", ReadJpeg},
                                       {"gif", "GIF", "GIF87a", ReadGif},
                                       {"gif", "GIF", "GIF89a", ReadGif},
                                       {"bmp", "BMP", "BM", ReadBmp},
                                       {"tif", "TIFF", {"II*\0", 4}, ReadTiff},
                                       {"tif", "TIFF", {"MM\0*", 4}, ReadTiff}};
  const auto* const type =
      std::find_if(std::begin(kTypes), std::end(kTypes), [&](const PictureType& candidate) {
        return start.compare(0, candidate.start.size(), candidate.start) == 0;
      });
  return type == std::end(kTypes) ? nullptr : type;
}

}  // namespace

Picture LookAtPicture(const std::filesystem::path& path) {
  const std::string name = "\"" + platform::TextOfPath(path.filename()) + "\" ";
  const platform::InputFile file(path);
  if (!file.IsOpen()) {
    throw Failure(name + "cannot be read");
  }
  if (file.Size() == 0) {
    throw Failure(name + "is empty");
  }
  Bytes bytes(file);
  const PictureType* const type = TypeOf(bytes.Text(0, 8));
  if (type == nullptr) {
    throw Failure(name + "is no picture");
  }
  const std::string pattern = CutName(path.filename()).pattern;
  if (pattern.substr(pattern.rfind('.') + 1) != type->extension) {
    throw Failure(name + "is a " + type->name + " picture, not what its name says");
  }
  const Found size = type->read(bytes);
  if (!size) {
    throw Failure(name + "is cut, its end is missing");
  }
  if (size->width <= 0 || size->height <= 0) {
    throw Failure(name + "is damaged");
  }
  return {*size, file.Status()};
}

std::optional<GifContent> ReadGifContent(const std::filesystem::path& path) {
  const platform::InputFile file(path);
  Bytes bytes(file);
  return TypeOf(bytes.Text(0, 8)) != nullptr ? FollowGif(bytes) : std::nullopt;
}

}  // namespace animate
