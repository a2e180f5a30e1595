#include "picture/gif.h"

#include "gif/gif_blocks.h"

namespace animate {

std::optional<Size> ReadGif(Bytes& bytes) {
  std::uint64_t read = 0;
  const GifBlocks blocks = ReadGifBlocks([&](std::size_t most) {
    std::string piece = bytes.Text(read, most);
    read += piece.size();
    return piece;
  });
  if (blocks.fault == GifFault::kCut) {
    return std::nullopt;
  }
  const bool isGood = blocks.fault == GifFault::kNone || blocks.fault == GifFault::kNoTrailer;
  return isGood ? Size{blocks.width, blocks.height} : Size();
}

}  // namespace animate
