// Finds the end of a GIF image's compressed data.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>

#include "gif/gif_input.h"

// Nobody asks for the pixels: the LZW codes are followed only because the code that ends the data
// cannot be found in any other way, and every byte that is taken on the way is copied. One object
// serves one frame after the other; what is left in its tables reaches the next frame, as far as
// the rules of the format let it.
class LzwFollower {
 public:
  // Where messages about the data go.
  std::FILE* messages = stderr;
  // Adds messages about the tables.
  bool debug = false;

  // Reads image data from `input`, from the code size up to the byte that holds the code that ends
  // it, and copies it to `output`. Data that no encoder writes (a code or a code size that the
  // tables have no place for) ends the image there, after a message. Returns false, after a
  // message, when the input ends before the data does; what was read until then is copied.
  bool CopyImageData(GifInput& input, std::FILE* output);

 private:
  // Codes 0 to 4100 have a place in the table; the last one is never cleared.
  static constexpr int kLastCode = 4100;

  void FollowCodes();
  int ReadCode();
  void FillBits();
  std::uint8_t ReadDataByte();
  void PutBackUnneeded();
  void NextFreeCode();
  void AddString(int prefix, int index);
  void OutputString(int code);
  void FollowString(int code) const;
  void InitTable();
  void ClearTable();
  void PrintStreamError(int value) const;

  GifInput* input_ = nullptr;

  // The bits held, lowest first, and their number.
  std::uint64_t bits_ = 0;
  int bitsHeld_ = 0;
  // The data bytes at hand, and how many more the sub-block has.
  GifInput::Run run_;
  int bytesLeftInBlock_ = 0;

  // A string is no more than its chain of prefixes, which ends at a root.
  std::array<bool, kLastCode + 1> used_ = {};
  std::array<std::int16_t, kLastCode + 1> prefix_ = {};
  int codeSize_ = 0;
  int clear_ = 0;
  int endOfInformation_ = 0;
  int codeWidth_ = 0;
  // The code at which the width grows.
  int incSize_ = 0;
  int nextFree_ = 0;
  // Whether every string in use is known to end at a root.
  bool stringsEnd_ = true;
};
