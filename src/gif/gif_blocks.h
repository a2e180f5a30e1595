// The strict reader of GIF files: which blocks there are, where, and the first thing wrong.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gif/gif_format.h"

// Where a part of the file lies, in bytes. A table that is not there has size 0.
struct GifSpan {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
};

// An image whose blocks are whole. It lies inside the screen, and has a pixel and colours.
struct GifImage {
  // In pixels of the screen.
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool interlaced = false;
  // As the graphic control extension before it says; at rest without one.
  GifControl control;
  // Its own colour table; without one it has the screen's.
  GifSpan colours;
  // The width in bits of the data's first codes, less one: 2 to 8.
  int codeSize = 0;
  // The compressed data, from the byte of the code size to the block terminator, both included.
  GifSpan data;
};

// What keeps a file from being a GIF that every program shows.
enum class GifFault {
  kNone,
  // It does not begin with "GIF87a" or "GIF89a".
  kNoGif,
  // The screen has no pixel.
  kNoScreen,
  // It ends inside a block, or before the first image.
  kCut,
  // It ends after whole blocks, an image among them, without the trailer.
  kNoTrailer,
  // The trailer comes before any image.
  kNoImage,
  // A byte stands where a block should begin and begins none.
  kUnknownBlock,
  kEmptyImage,
  kImageOutsideScreen,
  // Neither the image nor the screen has a colour table.
  kNoColours,
  // The code size is not 2 to 8.
  kCodeSize,
  // An image without a byte of compressed data.
  kNoData,
};

// The content of a GIF up to the first fault.
struct GifBlocks {
  GifFault fault = GifFault::kNoGif;
  // The screen, in pixels.
  int width = 0;
  int height = 0;
  // The global colour table.
  GifSpan colours;
  std::vector<GifImage> images;
};

// Gives the next bytes of a file: at most `most`, none only at the end of the file.
using GifSource = std::function<std::string(std::size_t most)>;

// Reads a GIF to its trailer or its first fault. Bytes after the trailer are ignored, and
// extensions but the graphic control only have to be whole. The memory it takes is that of the
// images' list. What the source throws goes to the caller.
GifBlocks ReadGifBlocks(const GifSource& source);

// The same for a file that is in memory.
GifBlocks ReadGifBlocks(std::string_view file);

// What a fault is, as the end of a sentence that the file begins: "it " + "is no GIF".
const char* TextOf(GifFault fault);
