// Writes LZW codes as the image data of a GIF.
#pragma once

#include <cstdint>
#include <string>

// Gives each code the width that the decoder expects by then, packs the bits, and cuts the bytes
// into sub-blocks. It also knows which code the decoder will give to its next string.
class LzwCodes {
 public:
  // The strings of one pixel have `codeSize` bits, 2 to 8.
  explicit LzwCodes(int codeSize);

  // Writes the code of a string.
  void Write(int code);

  // Writes the code that has the decoder forget its strings.
  void Clear();

  // Clears, and goes on with what another one has written.
  void Append(const LzwCodes& rest);

  // The code of the string that the decoder makes when it reads the next code: the string written
  // last with the first pixel of the next one. LzwStrings::kLimit when it has no place for one.
  int NextCode() const { return next_; }

  // The bits written until now.
  std::uint64_t BitCount() const { return bitCount_; }

  // Ends the data. Returns it whole, from the byte of the code size to the block terminator.
  std::string Finish();

 private:
  void Put(int code);
  void PutBits(std::uint64_t bits, int count);

  int codeSize_;
  std::string bytes_;
  std::uint64_t bits_ = 0;
  int bitsHeld_ = 0;
  std::uint64_t bitCount_ = 0;
  int next_ = 0;
  int width_ = 0;
  bool first_ = true;
};
