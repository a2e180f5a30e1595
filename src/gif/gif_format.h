// The marks of the GIF format, and the blocks that its writers put around pictures.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

inline constexpr std::string_view kGifSignature = "GIF89a";

// What each block begins with, and what ends the sub-blocks in it.
inline constexpr int kGifImage = 0x2C;
inline constexpr int kGifExtension = 0x21;
inline constexpr int kGifTrailer = 0x3B;
inline constexpr int kGifTerminator = 0x00;

// The extension that says how the next image is shown.
inline constexpr int kGifGraphicControl = 0xF9;

// In the packed bytes of the screen and of an image: whether a colour table follows, and its size.
inline constexpr int kGifTableFlag = 0x80;
inline constexpr int kGifTableSizeMask = 0x07;
// In that of an image.
inline constexpr int kGifInterlaceFlag = 0x40;

// How many colours a table has whose packed byte holds `sizeField`, 0 to 7.
constexpr int GifColourCount(int sizeField) {
  return 2 << sizeField;
}

// A part of the screen, in pixels; one without a width has none.
struct GifArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

// Takes bytes of a GIF, in their order.
using GifSink = std::function<void(std::string_view bytes)>;

// What becomes of an image before the next one is drawn: it is left, its rectangle is cleared, or
// shows again what it did before.
inline constexpr int kGifLeave = 1;
inline constexpr int kGifClear = 2;
inline constexpr int kGifRestore = 3;

// How an image is shown.
struct GifControl {
  // How long it stands, in hundredths of a second, 0 to 65535.
  int delay = 0;
  // 0 to 7; 0 is as good as kGifLeave.
  int disposal = 0;
  // The index of the colour that is not drawn.
  std::optional<int> transparent;
};

// What an animation begins with that is shown for ever: a screen of so many pixels, and the bytes
// of its global table, which has 2 to 256 entries.
std::string GifHead(int width, int height, std::string_view table);

// The descriptor of an image, with the bytes of its own table; none where it is empty.
std::string GifDescriptor(const GifArea& area, std::string_view table, bool interlaced = false);

// The graphic control extension, whole.
std::string GifControlBlock(const GifControl& control);

// The extension that has the animation shown `loops` times, 0 to 65535; 0 for ever.
std::string GifLoopBlock(int loops);
