#include "tests/support/gif_builder.h"

#include <map>
#include <utility>

namespace {

std::string Word(int value) {
  return Bytes({value, value >> 8});
}

std::string CompressPixels(const std::string& pixels, int codeSize) {
  const unsigned clear = 1U << codeSize;
  unsigned free = clear + 1;
  int width = codeSize + 1;
  std::vector<WideCode> codes;
  std::map<std::pair<unsigned, unsigned>, unsigned> table;
  unsigned string = clear;
  for (const char byte : pixels) {
    const unsigned pixel = static_cast<unsigned char>(byte);
    const auto [entry, isNew] = table.try_emplace({string, pixel}, free);
    if (!isNew) {
      string = entry->second;
      continue;
    }
    codes.push_back({string, width});
    string = pixel;
    if (free == 4095) {
      codes.push_back({clear, width});
      table.clear();
      free = clear + 2;
      width = codeSize + 1;
    } else if (++free > 1U << width) {
      ++width;
    }
  }
  codes.push_back({string, width});
  // The decoder makes an entry of this last code too.
  codes.push_back({clear + 1, free == 1U << width ? width + 1 : width});
  return PackCodes(codes);
}

}  // namespace

std::string Bytes(std::initializer_list<int> values) {
  return {values.begin(), values.end()};
}

std::string PackCodes(const std::vector<WideCode>& codes) {
  std::string data;
  unsigned bits = 0;
  int held = 0;
  for (const WideCode& next : codes) {
    bits |= next.code << held;
    for (held += next.width; held >= 8; held -= 8) {
      data += static_cast<char>(bits & 0xFF);
      bits >>= 8;
    }
  }
  return held > 0 ? data + static_cast<char>(bits) : data;
}

std::string SubBlocks(const std::string& data, std::size_t blockSize) {
  std::string blocks;
  for (std::size_t start = 0; start < data.size(); start += blockSize) {
    const std::string block = data.substr(start, blockSize);
    blocks += static_cast<char>(block.size()) + block;
  }
  return blocks;
}

std::string GifAround(int sizeField, int codeSize, const std::string& data, int width, int height) {
  const std::string size = Word(width) + Word(height);
  std::string gif = "GIF89a" + size + Bytes({0x80 | sizeField, 0, 0});
  // A ramp of its own for each size.
  for (int index = 0; index < 2 << sizeField; ++index) {
    gif += Bytes({index * 37, 255 - index, index});
  }
  return gif + "," + Word(0) + Word(0) + size + Bytes({0, codeSize}) + data;
}

std::string GifOfPixels(int width, int height, int pixelBits, const std::string& pixels) {
  const std::string data = SubBlocks(CompressPixels(pixels, pixelBits)) + Bytes({0}) + ";";
  return GifAround(pixelBits - 1, pixelBits, data, width, height);
}
