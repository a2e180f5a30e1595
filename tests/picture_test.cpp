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

const std::string kPng = "\x89PNG\r\n\x1A\n" +
                         Chunk("IHDR", BigEndian(300, 4) + BigEndian(5, 4) + "12345") +
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

// A picture of 300x5 whose two pieces of 2 bytes lie behind the directory and the table of their
// places.
std::string Tiff(bool isLittle, int offsetsTag, int secondPiece) {
  const auto number = [&](int value, int size) {
    return isLittle ? LittleEndian(value, size) : BigEndian(value, size);
  };
  const auto entry = [&](int tag, int type, int count, const std::string& value) {
    return number(tag, 2) + number(type, 2) + number(count, 4) + value;
  };
  return std::string(isLittle ? "II" : "MM") + number(42, 2) + number(8, 4) + number(4, 2) +
         entry(256, 3, 1, number(300, 2) + "xx") + entry(257, 4, 1, number(5, 4)) +
         entry(offsetsTag, 4, 2, number(62, 4)) +
         entry(offsetsTag == 273 ? 279 : 325, 3, 2, number(2, 2) + number(2, 2)) + number(0, 4) +
         number(70, 4) + number(secondPiece, 4) + "data";
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
      {"a.png", less(kPng, 24) + Chunk("tRNS", "x") + Chunk("IDAT", "") + kPngEnd,
       "300x5 transparent"},
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
      {"a.bmp", "BM123456789012" + LittleEndian(12, 4) + LittleEndian(300, 2) + LittleEndian(5, 2),
       "300x5"},
      {"a.tiff", Tiff(true, 273, 72), "300x5"},
      {"a.tif", Tiff(false, 324, 72), "300x5"},
      {"a.tif", Tiff(true, 273, 73), "is cut, its end is missing"},
      {"a.tif", Tiff(true, 273, 72).substr(0, 61), "is cut, its end is missing"},
      {"a.tif", Tiff(true, 999, 0).substr(0, 62), "300x5"},
      {"a.gif", gif, "3x2"},
      {"a.gif", less(gif, 1), "3x2"},
      {"a.gif", less(gif, 2), "is cut, its end is missing"},
      {"a.gif", gifOutside, "is damaged"},
      {"a.jpg", kPng + kPngEnd, "is a PNG picture, not what its name says"},
      {"a.png", "MM*", "is no picture"},
      {"a.png", "", "is empty"},
  };
  for (const auto& c : kCases) {
    animate::Bytes content(c.content);
    const auto facts = animate::LookAtContent(content, c.name);
    const std::string said =
        facts ? std::to_string(facts->size.width) + "x" + std::to_string(facts->size.height) +
                    (facts->turn == animate::Turn::kNone ? "" : " turned") +
                    (facts->transparency == animate::Transparency::kNone ? "" : " transparent")
              : facts.Reason();
    EXPECT_EQ(said, c.said) << c.name << " " << c.content.size();
  }
}

}  // namespace
