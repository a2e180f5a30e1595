#include "tests/support/image_files.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace {

void ReadChunks(const std::string& chunks, std::vector<AviStream>& streams) {
  for (std::size_t at = 0; at + 8 <= chunks.size();) {
    const std::string name = chunks.substr(at, 4);
    std::uint32_t size = 0;
    std::memcpy(&size, &chunks[at + 4], sizeof(size));
    const std::string content = chunks.substr(at + 8, size);
    if (name == "RIFF" || name == "LIST") {
      ReadChunks(content.substr(4), streams);
    } else if (name == "strh") {
      streams.emplace_back().header = content;
    } else if (name == "strf") {
      streams.back().format = content;
    } else if (name[0] == '0') {
      AviStream& stream = streams.at(static_cast<std::size_t>(name[1] - '0'));
      stream.chunks.push_back(content);
      stream.content += content;
    }
    at += 8 + size + size % 2;
  }
}

}  // namespace

std::string LittleEndian(int number, int size) {
  return {reinterpret_cast<const char*>(&number), static_cast<std::size_t>(size)};
}

std::string Bytes(std::size_t size, int seed) {
  std::string bytes;
  for (std::size_t index = 0; index < size; ++index) {
    bytes += static_cast<char>(seed + static_cast<int>(index) * 7);
  }
  return bytes;
}

std::string Pixels(std::size_t count, int seed) {
  std::string pixels = Bytes(count * 4, seed);
  for (std::size_t alpha = 3; alpha < pixels.size(); alpha += 4) {
    pixels[alpha] = '\xFF';
  }
  return pixels;
}

std::string BitmapFile(int width, const std::string& pixels) {
  const int size = static_cast<int>(pixels.size());
  return "BM" + LittleEndian(54 + size, 4) + LittleEndian(0, 4) + LittleEndian(54, 4) +
         LittleEndian(40, 4) + LittleEndian(width, 4) + LittleEndian(size / width / 4, 4) +
         LittleEndian(1, 2) + LittleEndian(32, 2) + std::string(24, '\0') + pixels;
}

std::vector<AviStream> ReadAvi(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<AviStream> streams;
  ReadChunks({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}, streams);
  return streams;
}
