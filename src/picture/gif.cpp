#include "picture/gif.h"

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
  const GifImage& first = blocks.images.front();
  const bool isWhole =
      !first.control.transparent && first.width == blocks.width && first.height == blocks.height;
  return PictureFacts{.size = {blocks.width, blocks.height},
                      .transparency = isWhole ? Transparency::kNone : Transparency::kWhole,
                      .hasMore = blocks.images.size() > 1};
}

}  // namespace animate
