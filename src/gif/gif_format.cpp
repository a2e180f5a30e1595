#include "gif/gif_format.h"

#include <bit>

namespace {

// The low 16 bits of a number.
std::string Word(int value) {
  return {static_cast<char>(value), static_cast<char>(value >> 8)};
}

// What a packed byte says of a table: 2^(field + 1) colours of three bytes.
int TableField(std::string_view table) {
  return table.empty() ? 0
                       : kGifTableFlag | (static_cast<int>(std::bit_width(table.size() / 3)) - 2);
}

}  // namespace

std::string GifHead(int width, int height, std::string_view table) {
  constexpr int kEightBitsAColour = 0x70;
  return std::string(kGifSignature) + Word(width) + Word(height) +
         std::string{static_cast<char>(kEightBitsAColour | TableField(table)), 0, 0} +
         std::string(table) + GifLoopBlock(0);
}

std::string GifDescriptor(const GifArea& area, std::string_view table, bool interlaced) {
  const int packed = TableField(table) | (interlaced ? kGifInterlaceFlag : 0);
  return static_cast<char>(kGifImage) + Word(area.left) + Word(area.top) + Word(area.width) +
         Word(area.height) + static_cast<char>(packed) + std::string(table);
}

std::string GifControlBlock(const GifControl& control) {
  const int packed = control.disposal * 4 + (control.transparent ? 1 : 0);
  return std::string{kGifExtension, static_cast<char>(kGifGraphicControl), 4,
                     static_cast<char>(packed)} +
         Word(control.delay) +
         std::string{static_cast<char>(control.transparent.value_or(0)), kGifTerminator};
}

std::string GifLoopBlock(int loops) {
  return std::string{kGifExtension, static_cast<char>(0xFF), 11} + "NETSCAPE2.0" +
         std::string{3, 1} + Word(loops) + std::string{kGifTerminator};
}
