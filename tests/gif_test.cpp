#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <memory>
#include <random>

#include "gif/gif_anim_creator.h"
#include "gif/gif_copier.h"
#include "log/working_folders.h"
#include "platform/files.h"
#include "platform/gdiplus.h"
#include "platform/images.h"
#include "platform/program.h"
#include "tests/reference/literal_merger.h"
#include "tests/support/gif_builder.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class GifFixture : public LogFixture {
 protected:
  // Has a new merger with the settings append files one after the other, the first with the first
  // flag, until one breaks off. With `fixed` it says which frames are fixed to x and y. Returns
  // what went to the output.
  std::string Merge(const std::vector<std::string>& files, GifSettings settings = {},
                    const std::vector<bool>& fixed = {}) {
    const auto merger = std::make_unique<GifMerger>();
    results_.clear();
    {
      const platform::OwnedFile output = platform::OpenFile(temp_ / "out", "wb");
      const platform::OwnedFile messages = platform::OpenFile(temp_ / "messages", "wb");
      merger->settings = settings;
      merger->settings.messages = messages.get();
      for (const std::string& file : files) {
        if (!fixed.empty()) {
          merger->settings.fixedPosition = fixed[results_.size()];
        }
        results_.push_back(merger->AppendBytes(file, output.get(), results_.empty()));
        if (results_.back() == GifFrameResult::kBrokenOff) {
          break;
        }
      }
    }
    errors_ = ReadBytes("messages");
    return ReadBytes("out");
  }

  // Has a new creator make "out.gif", or the given file, of the frames.
  int Create(int frameRate, const std::string& output = "") {
    const auto creator = std::make_unique<k3dGifAnimCreator>();
    creator->m_sInputFolder = frames_.Path();
    creator->m_sOutputFile = output.empty() ? temp_ / "out.gif" : output;
    creator->m_nFrameRate = frameRate;
    CaptureStderr();
    const int status = creator->CreateAnimatedGif();
    errors_ = GetCapturedStderr();
    return status;
  }

  std::string ReadBytes(const std::string& name) const {
    const platform::OwnedFile file = platform::OpenFile(temp_ / name, "rb");
    std::string bytes;
    for (int byte = 0; file && (byte = std::fgetc(file.get())) != EOF;) {
      bytes += static_cast<char>(byte);
    }
    return bytes;
  }

  TempFolder frames_;
  std::vector<GifFrameResult> results_;
  std::string errors_;
};

// Two colours, 2x1 pixels 0 and 1 as the codes CLEAR 0 1 EOI of three bits: 0x44, 0x0A.
const std::string kColours = Bytes({10, 20, 30, 40, 50, 60});
const std::string kScreen = Bytes({3, 0, 3, 0, 0xF0, 1, 7});
const std::string kImage = "," + Bytes({1, 0, 2, 0, 2, 0, 1, 0});
const std::string kData = Bytes({2, 2, 0x44, 0x0A});
const std::string kControl = Bytes({0x21, 0xF9, 4, 8, 1, 0, 0, 0});
const std::string kLoop = Bytes({0x21, 0xFF, 11}) + "NETSCAPE2.0" + Bytes({3, 1, 0, 0, 0});
const std::string kNoImage = "GIF_Read_Header: Unexpected End of File\n";
const std::string kBrokenOff = "EOF in data stream\n";
const std::string kFrame = GifOfPixels(2, 2, 2, Bytes({0, 1, 2, 3}));

TEST(GifBlocks, FirstFaultOfAFile) {
  const std::string start = "GIF87a" + kScreen + kColours;
  const std::string image = kImage + Bytes({0}) + kData + Bytes({0});
  const struct {
    std::string file;
    GifFault fault;
    std::size_t images;
  } cases[] = {
      {"GIF88a" + start.substr(6) + image + ";", GifFault::kNoGif, 0},
      {"GIF87a" + Bytes({0, 0, 1, 0, 0, 0, 0, ';'}), GifFault::kNoScreen, 0},
      {"GIF87a" + Bytes({1, 0, 0, 0, 0, 0, 0, ';'}), GifFault::kNoScreen, 0},
      {start, GifFault::kCut, 0},
      {start + ";", GifFault::kNoImage, 0},
      {start + image + image + ";,", GifFault::kNone, 2},
      {start + image + Bytes({0}) + ";", GifFault::kUnknownBlock, 1},
      {start + "," + Bytes({0, 0, 0, 0, 0, 0, 1, 0, 0}) + kData, GifFault::kEmptyImage, 0},
      {start + "," + Bytes({0, 0, 0, 0, 1, 0, 0, 0, 0}) + kData, GifFault::kEmptyImage, 0},
      {start + "," + Bytes({2, 0, 2, 0, 2, 0, 1, 0, 0}) + kData, GifFault::kImageOutsideScreen, 0},
      {start + "," + Bytes({1, 0, 3, 0, 2, 0, 1, 0, 0}) + kData, GifFault::kImageOutsideScreen, 0},
      {start + kImage + Bytes({0, 1, 0}), GifFault::kCodeSize, 0},
      {start + kImage + Bytes({0, 9, 0}), GifFault::kCodeSize, 0},
      {start + kImage + Bytes({0, 8, 0}), GifFault::kNoData, 0},
      {"GIF89a" + Bytes({3, 0, 3, 0, 0x70, 0, 0}) + image, GifFault::kNoColours, 0},
  };
  for (const auto& test : cases) {
    const GifBlocks blocks = ReadGifBlocks(test.file);
    EXPECT_EQ(blocks.fault, test.fault) << testing::PrintToString(test.file);
    EXPECT_EQ(blocks.images.size(), test.images) << testing::PrintToString(test.file);
  }
}

TEST(GifBlocks, WhatAFileHoldsInAnyPieces) {
  // Separators and trailers where they mean nothing; controls that another extension, a second one
  // and an image end.
  const std::string local = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  const std::string data = Bytes({3, 2, ';', ',', 1, '!', 0});
  const std::string file = "GIF89a" + kScreen + kColours + Bytes({'!', 0xFE, 2, ',', ';', 0}) +
                           Bytes({'!', 0xF9, 4, 0x9D, ',', ';', 3, 0}) +
                           Bytes({'!', 0xFF, 0, '!', 0xF9, 3, 1, 1, 1, 0}) + kImage +
                           Bytes({0xC1}) + local + data + kImage + Bytes({0}) + data + ";";
  for (std::size_t size = 0; size <= file.size(); ++size) {
    std::string_view rest = std::string_view(file).substr(0, size);
    const GifBlocks blocks = ReadGifBlocks([&](std::size_t) {
      const std::string_view piece = rest.substr(0, 1 + size % 3);
      rest.remove_prefix(piece.size());
      return std::string(piece);
    });
    const std::size_t second = file.size() - 1 - data.size() - 10;
    ASSERT_EQ(blocks.fault, size < 6                                    ? GifFault::kNoGif
                            : size == file.size()                       ? GifFault::kNone
                            : size == second || size == file.size() - 1 ? GifFault::kNoTrailer
                                                                        : GifFault::kCut)
        << size;
    if (blocks.fault != GifFault::kNone) {
      continue;
    }
    const auto part = [&](GifSpan span) { return file.substr(span.offset, span.size); };
    EXPECT_EQ(std::pair(blocks.width, blocks.height), std::pair(3, 3));
    EXPECT_EQ(part(blocks.colours), kColours);
    const GifImage& image = blocks.images.at(0);
    EXPECT_THAT((std::array{image.left, image.top, image.width, image.height, image.codeSize}),
                ElementsAre(1, 2, 2, 1, 3));
    EXPECT_TRUE(image.interlaced);
    EXPECT_THAT((std::array{image.control.disposal, image.control.delay}),
                ElementsAre(7, ',' + ';' * 256));
    EXPECT_EQ(image.control.transparent, 3);
    EXPECT_EQ(part(image.colours), local);
    EXPECT_EQ(part(image.data), data);
    EXPECT_EQ(blocks.images.at(1).colours.size, 0U);
    EXPECT_EQ(blocks.images.at(1).control.transparent, std::nullopt);
  }
}

TEST(GifCopier, ShowsEachFrameAsItIsAlone) {
  const auto gif = [](int screen, const std::string& colours, const std::string& blocks) {
    return "GIF87a" + Bytes({3, 0, 3, 0, screen, 1, 7}) + colours + blocks;
  };
  const std::string whole = "," + Bytes({0, 0, 0, 0, 3, 0, 3, 0});
  const std::string four = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  const std::string control = Bytes({'!', 0xF9, 4, 1, 9, 9, 1, 0});
  // Interlaced, with bytes behind the end code; with a transparent colour; smaller than its screen.
  const std::string full =
      gif(0xF0, kColours, whole + Bytes({0x40}) + kData + Bytes({1, 5, 0, ';', 'x'}));
  const std::string clear = gif(0xF0, kColours, control + whole + Bytes({0}) + kData + Bytes({0}));
  const std::string small = gif(0x70, "", kImage + Bytes({0x81}) + four + kData + Bytes({0, ';'}));
  const std::string later = gif(0xF1, four, whole + Bytes({0x80}) + kColours + kData + Bytes({0}));
  // Expected: the size of the global table, then for each image its disposal and own table.
  const struct {
    std::vector<std::string> frames;
    std::vector<std::size_t> expected;
  } cases[] = {
      {{full, full, later}, {6, 1, 0, 1, 0, 1, 0}},
      {{later, gif(0xF1, four, full.substr(19)), full}, {12, 1, 6, 1, 0, 1, 6}},
      {{clear, clear}, {6, 2, 0, 2, 0}},
      {{full, clear, full, small}, {0, 2, 6, 1, 6, 2, 6, 1, 12}},
      {{small, full}, {0, 1, 12, 2, 6}},
  };
  for (const auto& test : cases) {
    std::string made;
    GifCopier copier([&](std::string_view bytes) { made += bytes; });
    for (const std::string& frame : test.frames) {
      EXPECT_EQ(copier.Expect(ReadGifBlocks(frame)), GifRefusal::kNone);
    }
    for (const std::string& frame : test.frames) {
      copier.Append(frame, ReadGifBlocks(frame), 0x203);
    }
    copier.Finish();
    const GifBlocks blocks = ReadGifBlocks(made);
    ASSERT_EQ(blocks.fault, GifFault::kNone);
    ASSERT_EQ(blocks.images.size(), test.frames.size());
    EXPECT_THAT(made, StartsWith("GIF89a" + Bytes({3, 0, 3, 0})));
    EXPECT_EQ(made.substr(13 + blocks.colours.size, 19), kLoop);
    std::vector<std::size_t> found = {blocks.colours.size};
    for (std::size_t index = 0; index < blocks.images.size(); ++index) {
      const std::string& frame = test.frames[index];
      const GifBlocks own = ReadGifBlocks(frame);
      // The bytes between table and data, and which colours and data these are.
      const auto shown = [](const std::string& file, const GifBlocks& in, const GifImage& image) {
        const GifSpan& colours = image.colours.size != 0 ? image.colours : in.colours;
        return std::tuple(image.left, image.top, image.width, image.height, image.interlaced,
                          image.control.transparent, file.substr(colours.offset, colours.size),
                          file.substr(image.data.offset, image.data.size));
      };
      EXPECT_EQ(shown(made, blocks, blocks.images[index]), shown(frame, own, own.images[0]));
      EXPECT_EQ(blocks.images[index].control.delay, 0x203);
      found.push_back(static_cast<std::size_t>(blocks.images[index].control.disposal));
      found.push_back(blocks.images[index].colours.size);
    }
    EXPECT_EQ(found, test.expected);
  }

  GifCopier copier([](std::string_view) {});
  EXPECT_EQ(copier.Expect(ReadGifBlocks("")), GifRefusal::kNotOneImage);
  EXPECT_EQ(copier.Expect(ReadGifBlocks(full)), GifRefusal::kNone);
  EXPECT_EQ(copier.Expect(ReadGifBlocks(kFrame)), GifRefusal::kOtherSize);
}

TEST_F(GifFixture, OutputLayout) {
  const std::string start = "GIF87a" + kScreen + kColours;
  const std::string noTable = "GIF87a" + Bytes({3, 0, 3, 0, 0x70, 1, 7});
  const std::string local = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  const std::string end = Bytes({0});
  const std::string plain = start + Bytes({0x21, 0xFE, 1, 'x', 0}) + kImage + Bytes({0x60}) + kData;
  const std::string header = "GIF89a" + kScreen + kColours + kControl + kLoop + kImage;
  const struct {
    const char* what;
    std::vector<std::string> files;
    std::string expected;
  } cases[] = {
      {"later frames bring their colours; a table of their own is kept, with the screen's size",
       {plain, plain + ";", start + kImage + Bytes({0x81}) + local + kData},
       header + Bytes({0x60}) + kData + end + kControl + kImage + Bytes({0xE0}) + kColours + kData +
           end + kControl + kImage + Bytes({0x80}) + local + kData + end},
      {"no table in a later frame: the colours in memory",
       {start + kImage + Bytes({0x81}) + local + kData, noTable + kImage + end + kData},
       header + Bytes({0x80}) + local + kData + end + kImage + Bytes({0x80}) + local.substr(0, 6) +
           kData + end},
      {"no table in the first frame",
       {noTable + kImage + end + kData},
       "GIF89a" + noTable.substr(6) + kLoop + kImage + end + kData + end},
      {"bytes of the sub-block after the end are not copied; a sub-block of length zero",
       {start + kImage + Bytes({0, 2, 0, 0x44, 5, 0x0A, 9, 9, 9, 0})},
       header + Bytes({0, 2, 0, 0x44, 5, 0x0A, 0})},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Merge(test.files), test.expected) << test.what;
    EXPECT_EQ(errors_, "") << test.what;
  }
}

TEST_F(GifFixture, SettingsShowInTheOutput) {
  const std::string file = "GIF87a" + kScreen + kColours + kImage + Bytes({0}) + kData;
  GifSettings settings;
  settings.delay = 0x102;
  settings.disposal = 1;
  settings.loops = 0x304;
  settings.transparent = 41 + (50 << 8) + (60 << 16);
  settings.fixedPosition = true;
  settings.x = 0x506;
  settings.y = 7;
  settings.verbose = settings.debug = true;
  EXPECT_EQ(Merge({file}, settings),
            "GIF89a" + kScreen + kColours + Bytes({0x21, 0xF9, 4, 5, 2, 1, 1, 0}) +
                kLoop.substr(0, 16) + Bytes({4, 3, 0, ',', 6, 5, 7, 0, 2, 0, 1, 0, 0}) + kData +
                Bytes({0}));
  EXPECT_EQ(errors_,
            "Screen: 3x3x2 m=128 cres=7 bkgnd=1 pix=0\n"
            "Transparent not matched fully, col #1 (40,50,60) used now\n"
            "Image: 2x1x2 m=0 i=0 pix=0 \n"
            "Clearing Table...\nIniting Table...Clearing Table...\nIniting Table...");
  // Colours equally near: the lower index is taken.
  settings.transparent = 25 + (35 << 8) + (45 << 16);
  Merge({file}, settings);
  EXPECT_THAT(errors_, HasSubstr("col #0 (10,20,30)"));
  settings = {};
  settings.transparent = 0;
  EXPECT_THAT(Merge({file}, settings), HasSubstr(Bytes({0x21, 0xF9, 4, 9, 1, 0, 0, 0})));
  // A code that equals the growing value at the full width, here an entry made out of order.
  settings.debug = true;
  settings.loops = settings.transparent = settings.delay = -1;
  const std::string bare =
      Merge({GifAround(7, 11, SubBlocks(PackCodes(12, {0, 4095, 2049})))}, settings);
  EXPECT_EQ(errors_, "Clearing Table...\nIniting Table...<13?>");
  EXPECT_EQ(bare[13 + 768], ',') << "neither control block nor loop";
}

TEST_F(GifFixture, BadInput) {
  const std::string full = "Error: GetNext nextab=4100\n";
  const auto copied = GifFrameResult::kCopied;
  const auto noImage = GifFrameResult::kNoImage;
  const auto brokenOff = GifFrameResult::kBrokenOff;
  const std::string noData = GifAround(0, 2, "");
  const struct {
    const char* what;
    std::string file;
    std::string errors;
    GifFrameResult result;
  } cases[] = {
      {"empty", "", kNoImage, noImage},
      {"no image", "GIF89a" + kScreen + kColours + ";", kNoImage, noImage},
      {"ends before the code size", noData.substr(0, noData.size() - 1), kBrokenOff, brokenOff},
      {"code size 13", GifAround(0, 13, ""), "\nError! in stream=d \n", copied},
      {"no data", noData, kBrokenOff, brokenOff},
      {"ends in a sub-block", GifAround(0, 2, Bytes({9, 0x44})), kBrokenOff, brokenOff},
      {"code 4101", GifAround(7, 12, SubBlocks(PackCodes(13, {1, 2, 4101}))),
       "\nError! in stream=1005 \nCLEAR=1000 INCSIZE=1fff EOI=1001 code_size=d \n", copied},
      {"code 4100 has an entry", GifAround(7, 12, SubBlocks(PackCodes(13, {1, 4100, 2, 4097}))), "",
       copied},
      {"a code that is its own prefix", GifAround(7, 8, SubBlocks(PackCodes(9, {300, 300, 257}))),
       "Error: Sending i=4101 index=300\n", copied},
      // With code size 0 every code is one bit wide until the code 1 comes.
      {"table fills, the bits held go on", GifAround(0, 0, SubBlocks(std::string(513, '\0'))),
       full + full + full + full + full + full + kBrokenOff, brokenOff},
  };
  for (const auto& test : cases) {
    Merge({test.file});
    EXPECT_EQ(errors_, test.errors) << test.what;
    EXPECT_THAT(results_, ElementsAre(test.result)) << test.what;
  }
  // The last entry outlives clearing, and so does its circle.
  Merge({GifAround(7, 12, SubBlocks(PackCodes(13, {4100, 4100, 4097}))),
         GifAround(7, 12, SubBlocks(PackCodes(13, {1, 4100, 4097})))});
  EXPECT_EQ(errors_, "Error: Sending i=4101 index=4100\nError: Sending i=4101 index=4100\n");

  // A file that is the output as well does not feed on itself.
  const auto merger = std::make_unique<GifMerger>();
  temp_.Write("self", GifAround(0, 2, Bytes({255}) + std::string(20, '\0')));
  const platform::OwnedFile self = platform::OpenFile(temp_ / "self", "ab");
  std::setvbuf(self.get(), nullptr, _IONBF, 0);
  CaptureStderr();
  EXPECT_EQ(merger->AppendFile(temp_ / "self", self.get(), false), brokenOff);
  EXPECT_EQ(merger->AppendFile(temp_.Path(), nullptr, true), GifFrameResult::kNotOpened);
  EXPECT_EQ(GetCapturedStderr(), kBrokenOff + "Can't open " + temp_.Path() + " for reading.\n");
}

// Codes of about the width that the reader expects, which lead through every corner of the table:
// few clears, strings made out of order, first codes that are not in the table. Some are cut off.
std::string RandomFile(std::mt19937& random) {
  const auto upTo = [&](unsigned limit) { return static_cast<unsigned>(random()) % (limit + 1); };
  const int size = static_cast<int>(upTo(13));
  const unsigned clear = 1U << size;
  std::vector<WideCode> codes;
  for (unsigned made = clear + 2, count = 5 + upTo(upTo(3) == 0 ? 6000 : 300); count > 0; --count) {
    const int width = std::min(std::max(size + 1, static_cast<int>(std::bit_width(made - 1))), 13);
    const unsigned code = upTo(std::min(made, (1U << width) - 1));
    codes.push_back({code == clear + 1 && upTo(20) != 0 ? 0 : code, width});
    made = code == clear ? clear + 2 : std::min(made + 1, size == 12 ? 8191U : 4095U);
  }
  const std::string data = SubBlocks(PackCodes(codes), 1 + upTo(254));
  const unsigned sizeField = upTo(7);
  std::string file =
      GifAround(static_cast<int>(sizeField), size, data + std::string(upTo(9), '\1'));
  for (unsigned place = 14 + (6U << sizeField), end = place + 4; place < end; ++place) {
    file[place] = static_cast<char>(random());
  }
  return upTo(4) == 0 ? file.substr(0, upTo(static_cast<unsigned>(file.size()))) : file;
}

TEST_F(GifFixture, RandomFilesGiveWhatTheLiteralStepsGive) {
  std::mt19937 random(1);
  int circles = 0;
  int filled = 0;
  for (int round = 0; round < 400; ++round) {
    const auto literal = std::make_unique<LiteralMerger>();
    std::vector<std::string> files;
    std::vector<bool> fixed;
    do {
      files.push_back(RandomFile(random));
      fixed.push_back(random() % 2 == 0);
      literal->fixedPosition = fixed.back();
      literal->Append(files.back(), files.size() == 1);
    } while (!literal->ended && files.size() < 4);
    ASSERT_EQ(Merge(files, {}, fixed), literal->output) << round;
    ASSERT_EQ(errors_, literal->messages) << round;
    ASSERT_EQ(results_.back() == GifFrameResult::kBrokenOff, literal->ended) << round;
    circles += literal->messages.find("Sending") != std::string::npos ? 1 : 0;
    filled += literal->messages.find("GetNext") != std::string::npos ? 1 : 0;
  }
  EXPECT_GT(circles, 20);
  EXPECT_GT(filled, 5);
}

TEST_F(GifFixture, FramesBecomeOneAnimation) {
  const std::string tag = "TessaraAnimationConsole::k3dGifAnimCreator::";
  std::mt19937 random(2);
  std::string pixels(30000, '\1');
  for (int index = 0; index < 80000; ++index) {
    pixels += static_cast<char>(random());
  }
  const std::string large = GifOfPixels(1100, 100, 8, pixels);
  const struct {
    int rate;
    int delay;
  } cases[] = {{30, 3}, {1000, 0}, {1, 100}, {0, 6}};
  for (const auto& test : cases) {
    frames_.Write("f10.gif", large);
    frames_.Write("f2.GIF", kFrame);
    temp_.Write("old_qmbImgTemp_1.png");
    EXPECT_EQ(Create(test.rate), 1);
    LiteralMerger literal;
    literal.delay = test.delay;
    literal.Append(kFrame, true);
    literal.Append(large, false);
    const std::string made = ReadBytes("out.gif");
    EXPECT_EQ(made, literal.output + ";") << test.rate;
    EXPECT_THAT(made, EndsWith(large.substr(13 + 768 + 10))) << "what an encoder wrote";
    EXPECT_EQ(errors_, "");
    EXPECT_THAT(frames_.Names(), IsEmpty()) << "frames are used up";
  }
  EXPECT_THAT(Log(),
              IsSupersetOf({tag + "CreateAnimatedGif():Start", tag + "GetTheImageFiles():Start",
                            tag + "CreateAnimatedGif():done", tag + "CreateAnimatedGif():End"}));
  EXPECT_THAT(temp_.Names(), ElementsAre("log.txt", "out.gif")) << "swept";
}

TEST_F(GifFixture, WhatCannotBeMadeIsToldAndTheRestGoesOn) {
  EXPECT_EQ(Create(16), 0) << "no frames";
  EXPECT_EQ(Log().back(), "TessaraAnimationConsole::k3dGifAnimCreator::GetTheImageFiles():End");

  frames_.Write("f1.bmp", "no picture");
  frames_.Write("f2.gif", kFrame);
  EXPECT_EQ(Create(16, temp_ / "missing\\out.gif"), 0);
  EXPECT_EQ(
      Log().back(),
      "TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():Not able to open the output file");
  EXPECT_EQ(frames_.Names().size(), 2U) << "nothing is deleted";

  temp_.Write("_console_qmbImgTemp_.gif", kFrame);
  EXPECT_EQ(Create(16), 1);
  LiteralMerger literal;
  literal.delay = 6;
  literal.Append(kFrame, false);
  EXPECT_EQ(ReadBytes("out.gif"), literal.output + ";") << "nobody writes the header";
  EXPECT_EQ(errors_, "Can't open " + (temp_ / "_console_qmbImgTemp_.gif") + " for reading.\n");

  frames_.Write("f1.gif", kFrame);
  frames_.Write("f2.gif", kFrame);
  EXPECT_EQ(Create(16, frames_ / "f1.gif"), 1);
  EXPECT_EQ(errors_, kNoImage) << "the output is an input";
  EXPECT_THAT(frames_.Names(), IsEmpty());
}

TEST_F(GifFixture, OtherImagesAreConverted) {
  // An 8-bit grey BMP of 4x2 pixels: what every GDI+ saves as a GIF.
  std::string bmp = "BM" + Bytes({0x3E, 4, 0, 0, 0, 0, 0, 0, 0x36, 4, 0, 0, 40, 0, 0, 0}) +
                    Bytes({4, 0, 0, 0, 2, 0, 0, 0, 1, 0, 8, 0}) + std::string(16, '\0') +
                    Bytes({0, 1, 0, 0, 0, 0, 0, 0});
  for (int grey = 0; grey < 256; ++grey) {
    bmp += Bytes({grey, grey, grey, 0});
  }
  bmp += Bytes({0, 80, 160, 255, 255, 160, 80, 0});
  const platform::GdiplusSession gdiplus;
  EXPECT_FALSE(platform::FindImageEncoder(L"image/none"));
  frames_.Write("f1.BMP", bmp);
  frames_.Write("f2.bmp", bmp);
  frames_.Write("f3.bmp", "no picture");
  EXPECT_EQ(Create(25), 1);
  EXPECT_THAT(errors_, StartsWith("Can't open "));
  const std::string made = ReadBytes("out.gif");
  EXPECT_THAT(made, StartsWith("GIF89a" + Bytes({4, 0, 2, 0})));
  EXPECT_THAT(made, EndsWith(Bytes({0, ';'})));
  EXPECT_GT(made.size(), 2 * 768U) << "two colour tables";
  const bool held = platform::ExecutableFileName("x") == "x.exe";
  EXPECT_THAT(frames_.Names(),
              testing::ElementsAreArray(held ? std::vector<std::string>{"f1.BMP", "f2.bmp"}
                                             : std::vector<std::string>{}))
      << "on Windows what was loaded is held";

  // Nobody has fixed a temp root: the creator does, and one that is set but empty holds nothing.
  g_tempRoot = "";
  SetVariable("TESSARA_TEMP_PATH", "");
  SetVariable("TEMP", nullptr);
  SetVariable("TMP", temp_.Path().c_str());
  SetVariable("TMPDIR", temp_.Path().c_str());
  frames_.Write("g1.bmp", bmp);
  frames_.Write("g2.bmp", bmp);
  temp_.Write("_console_qmbImgTemp_.gif");
  EXPECT_EQ(Create(25), 1);
  EXPECT_THAT(temp_.Names(), Not(Contains("_console_qmbImgTemp_.gif")));
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  g_tempRoot = "";
  frames_.Clear();
  EXPECT_EQ(Create(25), 0);
  EXPECT_EQ(g_tempRoot, temp_.Path());
  EXPECT_THAT(temp_.Read("TessaraMovieConsole_Log.txt"), HasSubstr("CreateAnimatedGif():Start"));
}

TEST_F(GifFixture, ExampleEndsWithTheStatusOfWhatItMade) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const auto run = [&](const std::vector<std::string>& arguments) {
    return RunProgram(TESSARA_GIF_EXAMPLE, arguments, temp_.Path());
  };
  const ProgramResult usage = run({frames_.Path()});
  EXPECT_EQ(usage.exitStatus, 1);
  EXPECT_THAT(usage.output, HasSubstr("gif_animation InputFolder OutputFile"));
  EXPECT_EQ(run({frames_.Path(), temp_ / "out.gif"}).exitStatus, 1) << "no frames";

  frames_.Write("f1.gif", kFrame);
  frames_.Write("f2.gif", kFrame.substr(0, kFrame.size() - 4));
  const ProgramResult brokenOff = run({frames_.Path(), temp_ / "out.gif"});
  EXPECT_EQ(brokenOff.exitStatus, 4);
  EXPECT_EQ(brokenOff.errors, kBrokenOff);
  EXPECT_GT(ReadBytes("out.gif").size(), kFrame.size()) << "flushed";
  EXPECT_EQ(frames_.Names().size(), 2U) << "frames stay";

  for (const auto& [option, value, delay] : {std::tuple{"-fr", "30", 3}, {"-FR", "31", 6}}) {
    frames_.Write("f1.gif", kFrame);
    frames_.Write("f2.gif", kFrame);
    EXPECT_EQ(run({frames_.Path(), temp_ / "out.gif", option, value}).exitStatus, 0);
    EXPECT_THAT(ReadBytes("out.gif"), HasSubstr(Bytes({0x21, 0xF9, 4, 8, delay, 0, 0, 0})));
  }

  for (const char* const first : {"", "GIF89a without an image"}) {
    frames_.Write("f1.gif", first);
    frames_.Write("f2.gif", first);
    const ProgramResult bad = run({frames_.Path(), temp_ / "out.gif"});
    EXPECT_EQ(bad.exitStatus, 1);
    EXPECT_THAT(bad.errors, HasSubstr("out.gif holds no frame that can be read"));
  }
}

}  // namespace
