// Makes one looping GIF of GIFs with a single picture each, by copying.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "gif/gif_blocks.h"

// Why a frame cannot become part of the animation.
enum class GifRefusal {
  kNone,
  // It holds no image or several.
  kNotOneImage,
  // Its screen has another size than the first frame's.
  kOtherSize,
};

// Copies the compressed data, the colours and the transparency of each frame as they are, so every
// picture of the animation is its frame; what a frame smaller than its screen leaves free is
// transparent. The screen is the first frame's. So is the global colour table, unless some frames
// leave pixels free and others have no transparent colour: then there is none. A frame brings a
// table of its own when its colours are not the global ones. What GifMerger writes beside them is
// fixed, byte for byte; this writes what shows the frames. It holds one frame in memory.
class GifCopier {
 public:
  // What `sink` throws goes to the caller of Append and Finish, and the animation cannot be gone on
  // with.
  explicit GifCopier(GifSink sink) : sink_(std::move(sink)) {}

  // Has to be told of all frames, in their order, before the first is appended. `blocks` is what
  // ReadGifBlocks says of the frame's file, without a fault or with kNoTrailer. Returns why the
  // frame is refused, if it is.
  GifRefusal Expect(const GifBlocks& blocks);

  // Appends the image of the GIF whose content is `file`, which was expected as `blocks`, to stand
  // for `delay` hundredths of a second: 0 to 65535, a longer time cannot be written.
  void Append(std::string_view file, const GifBlocks& blocks, int delay);

  // Writes what is left of the animation, which has a frame. Nothing may be appended after it.
  void Finish();

 private:
  // An image that waits for the next one: that one decides whether this has to be cleared.
  struct Pending {
    GifControl control;
    std::string descriptor;
    std::string data;
  };

  void Start(std::string_view file, const GifBlocks& blocks);
  void WritePending(bool nextCovers);

  GifSink sink_;
  // Of the frames expected: the screen's size, 0x0 before the first; whether every image draws
  // each pixel of the screen, and whether each has a transparent colour.
  int width_ = 0;
  int height_ = 0;
  bool allCover_ = true;
  bool allTransparent_ = true;

  bool started_ = false;
  std::string globalColours_;
  // Whether the first image draws each pixel of the screen: it follows the last one.
  bool firstCovers_ = false;
  Pending pending_;
};
