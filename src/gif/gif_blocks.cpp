#include "gif/gif_blocks.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kPiece = 65536;
constexpr int kSmallestCodeSize = 2;
constexpr int kLargestCodeSize = 8;

// Thrown where a fault is found, so that no step has to ask.
struct Found {
  GifFault fault = GifFault::kNone;
};

// Follows the blocks of one file.
class BlockReader {
 public:
  explicit BlockReader(const GifSource& source) : source_(source) {}

  GifBlocks Read() {
    try {
      ReadScreen();
      while (ReadBlock()) {
      }
      blocks_.fault = GifFault::kNone;
    } catch (const Found& found) {
      blocks_.fault = found.fault;
    }
    return std::move(blocks_);
  }

 private:
  void ReadScreen();
  bool ReadBlock();
  void ReadExtension();
  void ReadImage();
  GifSpan SkipColours(int packed);
  void SkipSubBlocks();

  bool IsAtEnd();
  int ReadByte();
  int ReadWord();
  void Skip(std::size_t count);
  std::uint64_t Position() const { return pieceStart_ + next_; }

  const GifSource& source_;
  // The bytes at hand, where they lie in the file, and which one is next.
  std::string piece_;
  std::uint64_t pieceStart_ = 0;
  std::size_t next_ = 0;

  GifBlocks blocks_;
  // What the last graphic control extension says of the image to come.
  GifControl control_;
};

void BlockReader::ReadScreen() {
  std::string signature;
  while (signature.size() < kGifSignature.size() && !IsAtEnd()) {
    signature += static_cast<char>(ReadByte());
  }
  if (signature != "GIF87a" && signature != kGifSignature) {
    throw Found{GifFault::kNoGif};
  }
  blocks_.width = ReadWord();
  blocks_.height = ReadWord();
  const int packed = ReadByte();
  Skip(2);  // the background's index and the pixel aspect ratio
  if (blocks_.width == 0 || blocks_.height == 0) {
    throw Found{GifFault::kNoScreen};
  }
  blocks_.colours = SkipColours(packed);
}

// Returns whether another block has to follow.
bool BlockReader::ReadBlock() {
  if (IsAtEnd()) {
    throw Found{blocks_.images.empty() ? GifFault::kCut : GifFault::kNoTrailer};
  }
  switch (ReadByte()) {
    case kGifImage:
      ReadImage();
      return true;
    case kGifExtension:
      ReadExtension();
      return true;
    case kGifTrailer:
      if (blocks_.images.empty()) {
        throw Found{GifFault::kNoImage};
      }
      return false;
    default:
      throw Found{GifFault::kUnknownBlock};
  }
}

void BlockReader::ReadExtension() {
  constexpr std::size_t kControlSize = 4;
  const bool isControl = ReadByte() == kGifGraphicControl;
  const auto size = static_cast<std::size_t>(ReadByte());
  if (size == 0) {
    return;
  }
  if (isControl && size == kControlSize) {
    const int packed = ReadByte();
    control_.disposal = packed >> 2 & 7;
    control_.delay = ReadWord();
    const int index = ReadByte();
    control_.transparent = (packed & 1) != 0 ? std::optional(index) : std::nullopt;
  } else {
    Skip(size);
  }
  SkipSubBlocks();
}

void BlockReader::ReadImage() {
  GifImage image;
  image.control = std::exchange(control_, {});
  image.left = ReadWord();
  image.top = ReadWord();
  image.width = ReadWord();
  image.height = ReadWord();
  const int packed = ReadByte();
  if (image.width == 0 || image.height == 0) {
    throw Found{GifFault::kEmptyImage};
  }
  if (image.left + image.width > blocks_.width || image.top + image.height > blocks_.height) {
    throw Found{GifFault::kImageOutsideScreen};
  }
  image.interlaced = (packed & kGifInterlaceFlag) != 0;
  image.colours = SkipColours(packed);
  if (image.colours.size == 0 && blocks_.colours.size == 0) {
    throw Found{GifFault::kNoColours};
  }
  image.data.offset = Position();
  image.codeSize = ReadByte();
  if (image.codeSize < kSmallestCodeSize || image.codeSize > kLargestCodeSize) {
    throw Found{GifFault::kCodeSize};
  }
  SkipSubBlocks();
  image.data.size = Position() - image.data.offset;
  if (image.data.size == 2) {
    throw Found{GifFault::kNoData};
  }
  blocks_.images.push_back(image);
}

GifSpan BlockReader::SkipColours(int packed) {
  if ((packed & kGifTableFlag) == 0) {
    return {};
  }
  const auto size =
      std::size_t{3} * static_cast<std::size_t>(GifColourCount(packed & kGifTableSizeMask));
  const GifSpan colours = {Position(), size};
  Skip(size);
  return colours;
}

// Each sub-block stands after its length; one of length 0 ends them.
void BlockReader::SkipSubBlocks() {
  for (int size = ReadByte(); size != kGifTerminator; size = ReadByte()) {
    Skip(static_cast<std::size_t>(size));
  }
}

bool BlockReader::IsAtEnd() {
  if (next_ == piece_.size()) {
    pieceStart_ += next_;
    next_ = 0;
    piece_ = source_(kPiece);
  }
  return piece_.empty();
}

int BlockReader::ReadByte() {
  if (IsAtEnd()) {
    throw Found{GifFault::kCut};
  }
  return static_cast<unsigned char>(piece_[next_++]);
}

int BlockReader::ReadWord() {
  const int low = ReadByte();
  return low | ReadByte() << 8;
}

void BlockReader::Skip(std::size_t count) {
  while (count > 0) {
    if (IsAtEnd()) {
      throw Found{GifFault::kCut};
    }
    const std::size_t here = std::min(count, piece_.size() - next_);
    next_ += here;
    count -= here;
  }
}

}  // namespace

GifBlocks ReadGifBlocks(const GifSource& source) {
  return BlockReader(source).Read();
}

GifBlocks ReadGifBlocks(std::string_view file) {
  return ReadGifBlocks([&file](std::size_t most) {
    std::string piece(file.substr(0, most));
    file.remove_prefix(piece.size());
    return piece;
  });
}

const char* TextOf(GifFault fault) {
  switch (fault) {
    case GifFault::kNone:
      return "is whole";
    case GifFault::kNoGif:
      return "is no GIF";
    case GifFault::kNoScreen:
      return "has a size of nothing";
    case GifFault::kCut:
      return "is cut off";
    case GifFault::kNoTrailer:
      return "lacks its last byte";
    case GifFault::kNoImage:
      return "holds no image";
    case GifFault::kUnknownBlock:
      return "holds bytes that are no block of a GIF";
    case GifFault::kEmptyImage:
      return "holds an image without pixels";
    case GifFault::kImageOutsideScreen:
      return "holds an image that reaches beyond its size";
    case GifFault::kNoColours:
      return "holds an image without colours";
    case GifFault::kCodeSize:
      return "holds an image whose code size is not 2 to 8";
    case GifFault::kNoData:
      return "holds an image without data";
  }
  return "";
}
