// What files of pictures say of themselves, on byte strings.
#include "picture/picture.h"

#include <gtest/gtest.h>

#include "tests/support/gif_builder.h"
#include "tests/support/image_files.h"

namespace {

std::string BigEndian(int number, int size) {
  const std::string little = LittleEndian(number, size);
  return {little.rbegin(), little.rend()};
}

std::string Chunk(const std::string& name, const std::string& data) {
  return BigEndian(static_cast<int>(data.size()), 4) + name + data + "crc.";
}

const std::string kPng =
    "\x89PNG\r\n\x1A\n" +
    Chunk("IHDR", BigEndian(300, 4) + BigEndian(5, 4) + Bytes({8, 2, 0, 0, 0})) +
    Chunk("IDAT", "no IEND here");
const std::string kPngEnd = Chunk("IEND", "");

std::string Segment(const std::string& marker, const std::string& data) {
  return "\xFF" + marker + BigEndian(static_cast<int>(data.size()) + 2, 2) + data;
}

// The bits of a sample, then height and width.
const std::string kJpegFrame = "\x08" + BigEndian(5, 2) + BigEndian(300, 2) + "rest";
// A thumbnail in front, tables whose markers are like a frame's, and a filled marker.
const std::string kJpeg = "\xFF\xD8" + Segment("\xE1", "\xFF\xC0 thumb \xFF\xD9") + "\xFF" +
                          Segment("\xC2", kJpegFrame) + Segment("\xC4", "no frame here") +
                          Segment("\xCC", "nor is here") + Segment("\xDA", "scan") + "data \xFF";

// The directory of a picture that is to be turned right.
const std::string kExif = std::string("Exif\0\0MM", 8) + BigEndian(42, 2) + BigEndian(8, 4) +
                          BigEndian(1, 2) + BigEndian(274, 2) + BigEndian(3, 2) + BigEndian(1, 4) +
                          BigEndian(6, 2) + "xx" + BigEndian(0, 4);

std::string Bmp(int width, int height, int bits, int compression) {
  return "BM12345678" + LittleEndian(54, 4) + LittleEndian(40, 4) + LittleEndian(width, 4) +
         LittleEndian(height, 4) + LittleEndian(1, 2) + LittleEndian(bits, 2) +
         LittleEndian(compression, 4) + std::string(20, '\0');
}

// A pixel of 32 bits behind a header of a size, with a mask of its transparency.
std::string MaskedBmp(int compression, int headerSize, int mask) {
  return "BM12345678" + LittleEndian(70, 4) + LittleEndian(headerSize, 4) +
         Bmp(1, 1, 32, compression).substr(18, 36) + std::string(12, '\0') + LittleEndian(mask, 4) +
         "bgra";
}

// A picture of 300x5 with one more entry, whose two pieces of 2 bytes lie behind the directory and
// the table of their places.
std::string Tiff(bool isLittle, int secondPiece, int tag = 305, int value = 1, int next = 0) {
  const auto number = [&](int of, int size) {
    return isLittle ? LittleEndian(of, size) : BigEndian(of, size);
  };
  const auto entry = [&](int named, int type, int count, const std::string& values) {
    return number(named, 2) + number(type, 2) + number(count, 4) + values;
  };
  return std::string(isLittle ? "II" : "MM") + number(42, 2) + number(8, 4) + number(5, 2) +
         entry(256, 3, 1, number(300, 2) + "xx") + entry(257, 4, 1, number(5, 4)) +
         entry(273, 4, 2, number(74, 4)) + entry(279, 3, 2, number(2, 2) + number(2, 2)) +
         entry(tag, 3, 1, number(value, 2) + "xx") + number(next, 4) + number(82, 4) +
         number(secondPiece, 4) + "data";
}

std::string Webp(const std::string& kind, const std::string& data) {
  return "RIFF" + LittleEndian(12 + static_cast<int>(data.size()), 4) + "WEBP" + kind +
         LittleEndian(static_cast<int>(data.size()), 4) + data;
}

// The header of a TGA file of 3x2.
std::string Tga(char kind, char bits, char descriptor) {
  return Bytes({0, 0}) + kind + std::string(9, '\0') + LittleEndian(3, 2) + LittleEndian(2, 2) +
         bits + descriptor;
}

// A TGA file of 3x2 with a palette of two colours, or with what `flag` says instead.
std::string TgaOfPalette(int flag) {
  return Bytes({0, flag, 1, 0, 0, 2, 0, 24, 0, 0, 0, 0, 3, 0, 2, 0, 8, 0}) + std::string(12, 'p');
}

TEST(Picture, TellsItsSizeAndWhatIsWrong) {
  const std::string gif = GifOfPixels(3, 2, 2, Bytes({0, 1, 2, 3, 2, 1}));
  std::string gifOutside = gif;
  gifOutside[6] = 2;
  const auto less = [](const std::string& content, std::size_t count) {
    return content.substr(0, content.size() - count);
  };
  const struct {
    const char* name;
    std::string content;
    std::string said;
  } kCases[] = {
      {"a.PNG", kPng + kPngEnd, "300x5"},
      {"a.png", kPng + kPngEnd + "and more, long enough", "300x5"},
      {"a.png", kPng + less(kPngEnd, 1), "is cut, its end is missing"},
      {"a.png", less(kPng, 24) + Chunk("acTL", "x") + Chunk("IDAT", "") + kPngEnd, "300x5 more"},
      {"a.png", less(kPng, 24) + Chunk("tRNS", "x") + Chunk("IDAT", "") + kPngEnd, "300x5 whole"},
      {"a.png",
       less(kPng, 24).replace(25, 1, 1, 3) + Chunk("tRNS", "x") + Chunk("IDAT", "") + kPngEnd,
       "300x5 gradual"},
      {"a.jpeg", kJpeg + "\xFF\xD9", "300x5"},
      {"a.jpg", "\xFF\xD8" + Segment("\xE1", kExif) + Segment("\xC0", kJpegFrame) + "\xFF\xD9",
       "300x5 turned"},
      {"a.jpg", kJpeg + "\xFF\xD9 and more", "300x5"},
      {"a.jpg", kJpeg, "is cut, its end is missing"},
      {"a.jpg", "\xFF\xD8" + Segment("\xC0", kJpegFrame) + "\xFF\xD9", "300x5"},
      {"a.bmp", Bmp(3, 2, 24, 0) + std::string(24, 'p'), "3x2"},
      {"a.bmp", Bmp(3, -2, 24, 0) + std::string(24, 'p'), "3x2"},
      {"a.bmp", Bmp(3, 2, 24, 0) + std::string(23, 'p'), "is cut, its end is missing"},
      {"a.bmp", Bmp(3, 2, 8, 1) + "packed", "3x2"},
      {"a.bmp", Bmp(0, 2, 24, 0), "is damaged"},
      {"a.bmp", MaskedBmp(3, 56, 1), "1x1 gradual"},
      {"a.bmp", MaskedBmp(3, 56, 0), "1x1"},
      {"a.bmp", MaskedBmp(3, 52, 1), "1x1"},
      {"a.bmp", MaskedBmp(0, 56, 1), "1x1"},
      {"a.bmp", "BM123456789012" + LittleEndian(12, 4) + LittleEndian(300, 2) + LittleEndian(5, 2),
       "300x5"},
      {"a.tiff", Tiff(true, 84), "300x5"},
      {"a.tif", Tiff(false, 84, 258, 16), "300x5 deep"},
      {"a.tif", Tiff(false, 84, 338, 2), "300x5 gradual"},
      {"a.tif", Tiff(false, 84, 305, 1, 8), "300x5 more"},
      {"a.tif", Tiff(true, 85), "is cut, its end is missing"},
      {"a.tif", Tiff(true, 84).substr(0, 73), "is cut, its end is missing"},
      {"a.tif", Tiff(true, 84, 259, 7), "is a TIFF with JPEG inside, which converters show wrong"},
      {"a.tif", Tiff(true, 84, 259, 50000),
       "is a TIFF with a compression that converters do not know"},
      {"a.tif", Tiff(true, 84, 324, 9), "is a TIFF with tiles, which converters show wrong"},
      {"a.tif", Tiff(true, 84, 339, 3),
       "is a TIFF with signed or floating-point values, which converters show wrong"},
      {"a.tif", Tiff(true, 84, 258, 12),
       "is a TIFF with 12 bits a value, which converters do not decode"},
      {"a.tif", Tiff(true, 84, 262, 5), "300x5"},
      {"a.tif", Tiff(true, 84, 262, 8),
       "is a TIFF whose colours are not red, green and blue, which converters show wrong"},
      {"a.tif", Tiff(true, 84, 338, 1),
       "is a TIFF whose colours are multiplied with its transparency, which converters show wrong"},
      {"a.tif", std::string("II+\0", 4) + "wide", "is a BigTIFF, which converters do not decode"},
      {"a.webp",
       Webp("VP8 ",
            "tag" + Bytes({0x9D, 1, 0x2A}) + LittleEndian(300 + 0x4000, 2) + LittleEndian(5, 2)),
       "300x5"},
      {"a.webp", Webp("VP8L", "/" + LittleEndian(299 + (4 << 14) + (1 << 28), 4)), "300x5 gradual"},
      {"a.webp", Webp("VP8X", Bytes({0x10, 0, 0, 0}) + LittleEndian(299, 3) + LittleEndian(4, 3)),
       "300x5 gradual"},
      {"a.webp", Webp("VP8X", Bytes({2, 0, 0, 0}) + LittleEndian(299, 3) + LittleEndian(4, 3)),
       "is animated, which no converter decodes"},
      {"a.webp", less(Webp("VP8 ", "short"), 1), "is cut, its end is missing"},
      {"a.tga", Tga(2, 24, 0) + std::string(18, 'p'), "3x2"},
      {"a.tga", Tga(2, 32, 8) + std::string(24, 'p'), "3x2 gradual"},
      {"a.tga", Tga(2, 24, 0) + std::string(17, 'p'), "is cut, its end is missing"},
      {"a.tga", Tga(10, 24, 0) + "packed", "3x2"},
      {"a.tga", TgaOfPalette(1), "3x2"},
      {"a.tga", TgaOfPalette(2), "is no picture"},
      {"a.tga", Tga(2, 23, 0) + std::string(18, 'p'), "is no picture"},
      {"a.ppm", "P6\n# 7 8\n3 2\n255\n" + std::string(18, 'p'), "3x2"},
      {"a.ppm", "P6 3 2 255 " + std::string(17, 'p'), "is cut, its end is missing"},
      {"a.pgm", "P5 3 2 4095 " + std::string(12, 'p'), "3x2 deep"},
      {"a.pbm", "P4 9 2 " + std::string(4, 'p'), "9x2"},
      {"a.pbm", "P4 9 2 " + std::string(3, 'p'), "is cut, its end is missing"},
      {"a.pnm", "P1 3 2 1 0 1 0 1 0", "3x2"},
      {"a.gif", gif, "3x2"},
      {"a.gif", less(gif, 1), "3x2"},
      {"a.gif", less(gif, 2), "is cut, its end is missing"},
      {"a.gif", gifOutside, "is damaged"},
      {"a.jpg", kPng + kPngEnd, "is a PNG picture, not what its name says"},
      {"a.png", "MM*", "is no picture"},
      {"a.png", "", "is empty"},
  };
  const std::string kTransparent[] = {"", " whole", " gradual"};
  for (const auto& c : kCases) {
    animate::Bytes content(c.content);
    const auto facts = animate::LookAtContent(content, c.name);
    const std::string said =
        facts ? std::to_string(facts->size.width) + "x" + std::to_string(facts->size.height) +
                    (facts->turn == animate::Turn::kNone ? "" : " turned") +
                    kTransparent[static_cast<int>(facts->transparency)] +
                    (facts->isDeep ? " deep" : "") + (facts->hasMore ? " more" : "")
              : facts.Reason();
    EXPECT_EQ(said, c.said) << c.name << " " << c.content.size();
  }
  for (const int compression : {1, 2, 3, 4, 5, 8, 32773, 32946, 34925}) {
    const std::string tiff = Tiff(true, 84, 259, compression);
    animate::Bytes content(tiff);
    EXPECT_TRUE(animate::LookAtContent(content, "a.tif")) << compression;
  }
}

}  // namespace
