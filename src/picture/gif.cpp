#include "picture/gif.h"

#include <algorithm>

#include "gif/gif_blocks.h"

namespace animate {

std::optional<PictureFacts> ReadGif(Bytes& bytes) {
  std::uint64_t read = 0;
  const GifBlocks blocks = ReadGifBlocks([&](std::size_t most) {
    std::string piece = bytes.Text(read, most);
    read += piece.size();
    return piece;
  });
  if (blocks.fault == GifFault::kCut) {
    return std::nullopt;
  }
  if (blocks.fault != GifFault::kNone && blocks.fault != GifFault::kNoTrailer) {
    return PictureFacts();
  }
  // One that covers less than the screen leaves the rest free.
  const bool isWhole =
      std::any_of(blocks.images.begin(), blocks.images.end(), [&](const GifImage& image) {
        return !image.control.transparent && image.width == blocks.width &&
               image.height == blocks.height;
      });
  return PictureFacts{.size = {blocks.width, blocks.height},
                      .transparency = isWhole ? Transparency::kNone : Transparency::kWhole};
}

}  // namespace animate
