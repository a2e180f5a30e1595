#include "tests/support/frame_images.h"

#include <fstream>

#include "tests/support/avi_reader.h"

std::string FrameImagePixels(int width, int height, int seed) {
  std::string pixels;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      pixels += static_cast<char>(seed);
      pixels += static_cast<char>(x * 11);
      pixels += static_cast<char>(y * 29);
      pixels += '\xFF';
    }
  }
  return pixels;
}

void WriteFrameImage(const std::string& path, int width, int height, int seed) {
  const std::string pixels = FrameImagePixels(width, height, seed);
  std::string rows;
  for (std::size_t pixel = 0; pixel < pixels.size(); pixel += 4) {
    rows += pixels.substr(pixel, 3);
    if ((pixel / 4 + 1) % static_cast<std::size_t>(width) == 0) {
      rows.resize((rows.size() + 3) / 4 * 4);
    }
  }
  const auto number = [](auto value) { return LittleEndian(static_cast<std::uint32_t>(value), 4); };
  std::ofstream(path, std::ios::binary)
      << "BM" << number(54 + rows.size()) << number(0) << number(54) << number(40) << number(width)
      << number(height) << LittleEndian(1, 2) << LittleEndian(24, 2) << std::string(24, '\0')
      << rows;
}
