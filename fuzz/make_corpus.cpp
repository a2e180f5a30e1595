// Writes the inputs that fuzzing starts from into the folder that the first argument names.
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/gif_builder.h"

namespace {

std::string Ramp(int count) {
  std::string pixels;
  for (int index = 0; index < count; ++index) {
    pixels += static_cast<char>(index * index / 3);
  }
  return pixels;
}

std::string Lowered(std::string pixels, int colours) {
  for (char& pixel : pixels) {
    pixel = static_cast<char>(static_cast<unsigned char>(pixel) % colours);
  }
  return pixels;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    return 1;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  int number = 0;
  const auto write = [&](int files, const std::string& content) {
    std::ofstream(folder / ("seed" + std::to_string(++number)), std::ios::binary)
        << static_cast<char>(files - 1) << content;
  };
  for (int bits = 2; bits <= 8; ++bits) {
    const std::string gif = GifOfPixels(16, 16, bits, Lowered(Ramp(256), 1 << bits));
    write(1, gif);
    write(2, gif + gif);
  }
  // Sizes and codes that a real encoder does not use.
  write(1, GifAround(0, 0, SubBlocks(std::string(520, '\0'))));
  write(1, GifAround(0, 1, SubBlocks(PackCodes({{2, 2}, {0, 2}, {1, 2}, {3, 2}}))));
  write(1,
        GifAround(0, 12,
                  SubBlocks(PackCodes({{4096, 13}, {1, 13}, {4100, 13}, {4098, 13}, {4097, 13}}))));
  write(1, GifAround(0, 8, SubBlocks(PackCodes({{300, 9}, {300, 9}, {301, 9}, {257, 9}}), 1)));
  write(1, GifAround(0, 2, Bytes({0, 0x44, 0, 0x0A, 0})));
  return 0;
}
