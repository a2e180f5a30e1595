#include "gif/gif_copier.h"

#include <bit>

namespace {

std::string_view PartOf(std::string_view file, const GifSpan& span) {
  return file.substr(static_cast<std::size_t>(span.offset), static_cast<std::size_t>(span.size));
}

// The colour table that an image is drawn with.
const GifSpan& ColoursOf(const GifBlocks& blocks, const GifImage& image) {
  return image.colours.size != 0 ? image.colours : blocks.colours;
}

// Whether an image draws each pixel of its screen.
bool Covers(const GifBlocks& blocks, const GifImage& image) {
  return image.width == blocks.width && image.height == blocks.height && !image.control.transparent;
}

}  // namespace

GifRefusal GifCopier::Expect(const GifBlocks& blocks) {
  if (blocks.images.size() != 1) {
    return GifRefusal::kNotOneImage;
  }
  const GifImage& image = blocks.images.front();
  if (width_ == 0) {
    width_ = blocks.width;
    height_ = blocks.height;
  } else if (blocks.width != width_ || blocks.height != height_) {
    return GifRefusal::kOtherSize;
  }
  allCover_ = allCover_ && Covers(blocks, image);
  allTransparent_ = allTransparent_ && image.control.transparent.has_value();
  return GifRefusal::kNone;
}

void GifCopier::Append(std::string_view file, const GifBlocks& blocks, int delay) {
  const GifImage& image = blocks.images.front();
  if (started_) {
    WritePending(Covers(blocks, image));
  } else {
    Start(file, blocks);
  }
  const std::string_view colours = PartOf(file, ColoursOf(blocks, image));
  pending_.control = {delay, kGifLeave, image.control.transparent};
  pending_.descriptor = GifDescriptor({image.left, image.top, image.width, image.height},
                                      colours == globalColours_ ? "" : colours, image.interlaced);
  pending_.data = PartOf(file, image.data);
}

void GifCopier::Finish() {
  WritePending(firstCovers_);
  sink_(std::string{kGifTrailer});
}

void GifCopier::Start(std::string_view file, const GifBlocks& blocks) {
  constexpr std::size_t kScreenSize = 7;
  constexpr std::size_t kPacked = 4;
  started_ = true;
  firstCovers_ = Covers(blocks, blocks.images.front());
  std::string screen(file.substr(kGifSignature.size(), kScreenSize));
  // Where an image without a transparent colour is cleared, some programs fill in a colour of the
  // global table, and it would show behind the next one. Without that table they have none.
  if (allCover_ || allTransparent_) {
    globalColours_ = PartOf(file, blocks.colours);
  } else {
    screen[kPacked] = 0;
  }
  sink_(kGifSignature);
  sink_(screen);
  sink_(globalColours_);
  sink_(GifLoopBlock(0));
}

// An image that does not draw each pixel is shown over an empty screen, as it is when it is alone.
void GifCopier::WritePending(bool nextCovers) {
  pending_.control.disposal = nextCovers ? kGifLeave : kGifClear;
  sink_(GifControlBlock(pending_.control));
  sink_(pending_.descriptor);
  sink_(pending_.data);
}
