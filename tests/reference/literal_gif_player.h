// What a GIF shows, worked out code by code and pixel by pixel.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gif/colour.h"
#include "gif/gif_blocks.h"
#include "tests/support/animation.h"

// What the screen shows, row by row, and for how many hundredths of a second.
using GifShown = std::vector<std::pair<std::vector<GifColour>, long>>;

class LiteralGifPlayer {
 public:
  // Throws what is wrong with the file. What shows the same as before stands longer instead.
  static GifShown Play(const std::string& file) {
    const GifBlocks blocks = ReadGifBlocks(file);
    Require(blocks.fault == GifFault::kNone, TextOf(blocks.fault));
    GifShown shown;
    std::vector<GifColour> screen(Product(blocks.width, blocks.height));
    for (const GifImage& image : blocks.images) {
      const std::vector<GifColour> before = screen;
      const GifSpan& table = image.colours.size != 0 ? image.colours : blocks.colours;
      const std::string colours = file.substr(table.offset, table.size);
      const std::string pixels = Pixels(file.substr(image.data.offset, image.data.size));
      Require(pixels.size() == Product(image.width, image.height), "pixels");
      for (std::size_t pixel = 0; pixel < pixels.size(); ++pixel) {
        const int index = static_cast<unsigned char>(pixels[pixel]);
        Require(index < static_cast<int>(colours.size()) / 3, "an index beyond the table");
        const auto part = [&](std::size_t at) {
          return static_cast<std::uint8_t>(colours[static_cast<std::size_t>(index) * 3 + at]);
        };
        if (index != image.control.transparent) {
          screen[Place(blocks, image, pixel)] = ToGifColour({part(0), part(1), part(2), 255});
        }
      }
      Show(shown, screen, image.control.delay);
      if (image.control.disposal == 2) {
        for (std::size_t pixel = 0; pixel < pixels.size(); ++pixel) {
          screen[Place(blocks, image, pixel)] = kTransparent;
        }
      }
      screen = image.control.disposal == 3 ? before : screen;
    }
    return shown;
  }

  // What the file of an animation should show.
  static GifShown ShownBy(const Animation& animation) {
    GifShown shown;
    for (const auto& [pixels, delay] : animation.pictures) {
      std::vector<GifColour> screen;
      screen.reserve(pixels.size());
      for (const Colour& colour : pixels) {
        screen.push_back(ToGifColour(colour));
      }
      Show(shown, screen, delay);
    }
    return shown;
  }

  // The pixels of image data, from the byte of the code size on.
  static std::string Pixels(std::string_view data);

  static void Show(GifShown& shown, const std::vector<GifColour>& screen, long delay) {
    if (shown.empty() || shown.back().first != screen) {
      shown.emplace_back(screen, 0);
    }
    shown.back().second += delay;
  }

 private:
  static void Require(bool holds, const char* fault) {
    if (!holds) {
      throw std::runtime_error(fault);
    }
  }

  static std::size_t Product(int a, int b) {
    return static_cast<std::size_t>(a) * static_cast<std::size_t>(b);
  }

  static std::size_t Place(const GifBlocks& blocks, const GifImage& image, std::size_t pixel) {
    const auto width = static_cast<std::size_t>(image.width);
    return Product(image.top, blocks.width) + static_cast<std::size_t>(image.left) +
           pixel / width * static_cast<std::size_t>(blocks.width) + pixel % width;
  }
};

inline std::string LiteralGifPlayer::Pixels(std::string_view data) {
  const int size = static_cast<unsigned char>(data[0]);
  std::string bytes;
  for (data.remove_prefix(1); data[0] != 0;) {
    const std::size_t length = static_cast<unsigned char>(data[0]);
    bytes += data.substr(1, length);
    data.remove_prefix(1 + length);
  }
  const std::size_t clear = std::size_t{1} << size;
  std::vector<std::string> strings;
  std::string previous;
  std::string pixels;
  int width = size + 1;
  for (std::size_t bit = 0;;) {
    std::size_t code = 0;
    for (int digit = 0; digit < width; ++digit, ++bit) {
      Require(bit / 8 < bytes.size(), "cut off");
      code |= (static_cast<unsigned char>(bytes[bit / 8]) >> bit % 8 & std::size_t{1}) << digit;
    }
    Require(!strings.empty() || code == clear, "no clear code first");
    if (code == clear) {
      strings.resize(clear + 2);
      for (std::size_t pixel = 0; pixel < clear; ++pixel) {
        strings[pixel] = static_cast<char>(pixel);
      }
      width = size + 1;
      previous.clear();
      continue;
    }
    if (code == clear + 1) {
      Require((bit + 7) / 8 == bytes.size(), "bytes after the end code");
      return pixels;
    }
    Require(code <= strings.size() && (code < strings.size() || !previous.empty()), "no string");
    const std::string string = code < strings.size() ? strings[code] : previous + previous[0];
    pixels += string;
    if (!previous.empty() && strings.size() < 4096) {
      strings.push_back(previous + string[0]);
      width += strings.size() == std::size_t{1} << width && width < 12 ? 1 : 0;
    }
    previous = string;
  }
}
