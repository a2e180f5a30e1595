// GIF files built from their parts.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

// The low eight bits of each number as one byte.
std::string Bytes(std::initializer_list<int> values);

// Codes as bits, lowest first, each with the width it takes.
struct WideCode {
  unsigned code = 0;
  int width = 0;
};
std::string PackCodes(const std::vector<WideCode>& codes);

// `data` as sub-blocks of at most `blockSize` bytes, without a terminator.
std::string SubBlocks(const std::string& data, std::size_t blockSize = 255);

// A GIF with a global table of 2^(sizeField+1) colours whose image data is the byte `codeSize` and
// then `data` as it is, to the end of the file.
std::string GifAround(int sizeField, int codeSize, const std::string& data, int width = 3,
                      int height = 2);

// A whole GIF of the given pixels, one colour index a byte, with 2^pixelBits colours, 4 to 256 of
// them, compressed as a real encoder does it: a clear code whenever the table is full.
std::string GifOfPixels(int width, int height, int pixelBits, const std::string& pixels);
