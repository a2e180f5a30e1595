#include "gif/gif_format.h"

std::string GifWord(int value) {
  return {static_cast<char>(value), static_cast<char>(value >> 8)};
}

std::string GifControlBlock(const GifControl& control) {
  const int packed = control.disposal * 4 + (control.transparent ? 1 : 0);
  return std::string{kGifExtension, static_cast<char>(kGifGraphicControl), 4,
                     static_cast<char>(packed)} +
         GifWord(control.delay) +
         std::string{static_cast<char>(control.transparent.value_or(0)), kGifTerminator};
}

std::string GifLoopBlock(int loops) {
  return std::string{kGifExtension, static_cast<char>(0xFF), 11} + "NETSCAPE2.0" +
         std::string{3, 1} + GifWord(loops) + std::string{kGifTerminator};
}
