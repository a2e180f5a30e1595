#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <random>

#include "app/command_line.h"
#include "tests/reference/literal_merger.h"
#include "gif/gif_anim_creator.h"
#include "platform/gdiplus.h"
#include "platform/images.h"
#include "tests/support/gif_builder.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::StartsWith;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class GifFixture : public LogFixture {
 protected:
  // Appends files one after the other, the first with the first flag, until one breaks off. Returns
  // what went to the output.
  std::string Merge(const std::vector<std::string>& files) {
    results_.clear();
    {
      const platform::OwnedFile output = platform::OpenFile(temp_ / "out", "wb");
      const platform::OwnedFile messages = platform::OpenFile(temp_ / "messages", "wb");
      merger_->settings.messages = messages.get();
      for (const std::string& file : files) {
        results_.push_back(merger_->AppendBytes(file, output.get(), results_.empty()));
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
    platform::OwnedFile file = platform::OpenFile(temp_ / name, "rb");
    std::string bytes;
    for (int byte = 0; file && (byte = std::fgetc(file.get())) != EOF;) {
      bytes += static_cast<char>(byte);
    }
    return bytes;
  }

  std::unique_ptr<GifMerger> merger_ = std::make_unique<GifMerger>();
  TempFolder frames_;
  std::vector<GifFrameResult> results_;
  std::string errors_;
};

// Two colours, 2x1 pixels 0 and 1 as the codes CLEAR 0 1 EOI of three bits: 0x44, 0x0A.
const std::string kColours = Bytes({10, 20, 30, 40, 50, 60});
const std::string kSignature = "GIF87a";
const std::string kScreen = Bytes({2, 0, 1, 0, 0xF0, 1, 7});
const std::string kDescriptor = Bytes({1, 0, 2, 0, 2, 0, 1, 0});
const std::string kData = Bytes({2, 2, 0x44, 0x0A});
const std::string kControl = Bytes({0x21, 0xF9, 4, 8, 1, 0, 0, 0});
const std::string kFrame = GifOfPixels(2, 2, 2, Bytes({0, 1, 2, 3}));
const std::string kLoop = Bytes({0x21, 0xFF, 11}) + "NETSCAPE2.0" + Bytes({3, 1, 0, 0, 0});

TEST_F(GifFixture, OutputLayout) {
  const std::string start = kSignature + kScreen + kColours;
  const std::string extension = Bytes({0x21, 0xFE, 1, 'x', 0});
  const std::string noTable = kSignature + Bytes({2, 0, 1, 0, 0x70, 1, 7});
  const std::string localColours = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  const std::string header = "GIF89a" + kScreen + kColours + kControl + kLoop;
  const std::string image = "," + kDescriptor;
  const std::string plain = start + extension + image + Bytes({0x60}) + kData + Bytes({0}) + ";";
  const std::string firstFrame = header + image + Bytes({0x60}) + kData + Bytes({0});
  const struct {
    const char* what;
    std::vector<std::string> files;
    std::string expected;
  } cases[] = {
      {"first frame", {plain}, firstFrame},
      {"later frame brings its colours",
       {plain, plain},
       firstFrame + kControl + image + Bytes({0xE0}) + kColours + kData + Bytes({0})},
      {"local table: kept, its size field is the screen's",
       {plain, start + image + Bytes({0x81}) + localColours + kData},
       firstFrame + kControl + image + Bytes({0x80}) + localColours + kData + Bytes({0})},
      {"first frame with a local table",
       {start + image + Bytes({0x81}) + localColours + kData},
       header + image + Bytes({0x80}) + localColours + kData + Bytes({0})},
      {"no table anywhere in a later frame: the colours in memory",
       {plain, noTable + image + Bytes({0}) + kData},
       firstFrame + image + Bytes({0x80}) + kColours + kData + Bytes({0})},
      {"no table in the first frame",
       {noTable + image + Bytes({0}) + kData},
       "GIF89a" + Bytes({2, 0, 1, 0, 0x70, 1, 7}) + kLoop + image + Bytes({0}) + kData +
           Bytes({0})},
      {"bytes of the sub-block behind the end are not copied",
       {start + image + Bytes({0, 2, 5, 0x44, 0x0A, 9, 9, 9, 0})},
       header + image + Bytes({0, 2, 5, 0x44, 0x0A, 0})},
      {"data split into sub-blocks, one of length zero",
       {start + image + Bytes({0, 2, 0, 0x44, 1, 0x0A, 0})},
       header + image + Bytes({0, 2, 0, 0x44, 1, 0x0A, 0})},
  };
  for (const auto& test : cases) {
    merger_ = std::make_unique<GifMerger>();
    EXPECT_EQ(Merge(test.files), test.expected) << test.what;
    EXPECT_EQ(errors_, "") << test.what;
  }
}

TEST_F(GifFixture, SettingsShowInTheOutput) {
  const std::string file = kSignature + kScreen + kColours + "," + kDescriptor + Bytes({0}) + kData;
  const std::string start = "GIF89a" + kScreen + kColours;
  GifSettings& settings = merger_->settings;
  settings.delay = 0x102;
  settings.disposal = 1;
  settings.loops = 0x304;
  settings.transparent = 41 + (50 << 8) + (60 << 16);
  settings.fixedPosition = true;
  settings.x = 0x506;
  settings.y = 7;
  settings.verbose = true;
  settings.debug = true;
  EXPECT_EQ(Merge({file}), start + Bytes({0x21, 0xF9, 4, 5, 2, 1, 1, 0}) + Bytes({0x21, 0xFF, 11}) +
                               "NETSCAPE2.0" +
                               Bytes({3, 1, 4, 3, 0, ',', 6, 5, 7, 0, 2, 0, 1, 0, 0}) + kData +
                               Bytes({0}));
  EXPECT_EQ(errors_,
            "Screen: 2x1x2 m=128 cres=7 bkgnd=1 pix=0\n"
            "Transparent not matched fully, col #1 (40,50,60) used now\n"
            "Image: 2x1x2 m=0 i=0 pix=0 \n"
            "Clearing Table...\nIniting Table...Clearing Table...\nIniting Table...");
  // Colours equally near: the lower index is taken.
  settings.transparent = 25 + (35 << 8) + (45 << 16);
  Merge({file});
  EXPECT_THAT(errors_, HasSubstr("col #0 (10,20,30)"));
  // A code that equals the growing value at the full width, here an entry made out of order.
  settings.verbose = false;
  settings.loops = settings.transparent = settings.delay = -1;
  Merge({GifAround(7, 11, SubBlocks(PackCodes(12, {0, 4095, 2049})))});
  EXPECT_EQ(errors_, "Clearing Table...\nIniting Table...<13?>");
  EXPECT_EQ(ReadBytes("out").find("NETSCAPE"), std::string::npos);
  EXPECT_EQ(ReadBytes("out")[13 + 768], ',');
}

TEST_F(GifFixture, BadInput) {
  const std::string noImage = "GIF_Read_Header: Unexpected End of File\n";
  const std::string brokenOff = "EOF in data stream\n";
  const std::string full = "Error: GetNext nextab=4100\n";
  const struct {
    const char* what;
    std::string file;
    std::string errors;
    GifFrameResult result;
  } cases[] = {
      {"empty", "", noImage, GifFrameResult::kNoImage},
      {"no GIF", "GIF89a but text\n", noImage, GifFrameResult::kNoImage},
      {"no image", "GIF89a" + kScreen + kColours + ";", noImage, GifFrameResult::kNoImage},
      {"ends at the separator", "GIF89a" + kScreen + kColours + ",", brokenOff,
       GifFrameResult::kBrokenOff},
      {"code size 13", GifAround(0, 13, ""), "\nError! in stream=d \n", GifFrameResult::kCopied},
      {"no data", GifAround(0, 2, ""), brokenOff, GifFrameResult::kBrokenOff},
      {"ends in a sub-block", GifAround(0, 2, Bytes({9, 0x44})), brokenOff,
       GifFrameResult::kBrokenOff},
      {"code 4101", GifAround(7, 12, SubBlocks(PackCodes(13, {1, 2, 4101}))),
       "\nError! in stream=1005 \nCLEAR=1000 INCSIZE=1fff EOI=1001 code_size=d \n",
       GifFrameResult::kCopied},
      {"code 4100 has an entry", GifAround(7, 12, SubBlocks(PackCodes(13, {1, 4100, 2, 4097}))), "",
       GifFrameResult::kCopied},
      {"a code that is its own prefix", GifAround(7, 8, SubBlocks(PackCodes(9, {300, 300, 257}))),
       "Error: Sending i=4101 index=300\n", GifFrameResult::kCopied},
      // With code size 0 every code is one bit wide until the code 1 comes.
      {"table fills, the bits held go on", GifAround(0, 0, SubBlocks(std::string(513, '\0'))),
       full + full + full + full + full + full + brokenOff, GifFrameResult::kBrokenOff},
  };
  for (const auto& test : cases) {
    merger_ = std::make_unique<GifMerger>();
    Merge({test.file});
    EXPECT_EQ(errors_, test.errors) << test.what;
    EXPECT_THAT(results_, ElementsAre(test.result)) << test.what;
  }
  // The last entry outlives clearing, and so does its circle.
  merger_ = std::make_unique<GifMerger>();
  Merge({GifAround(7, 12, SubBlocks(PackCodes(13, {4100, 4100, 4097}))),
         GifAround(7, 12, SubBlocks(PackCodes(13, {1, 4100, 4097})))});
  EXPECT_EQ(errors_, "Error: Sending i=4101 index=4100\nError: Sending i=4101 index=4100\n");

  // A file that is the output as well does not feed on itself.
  merger_ = std::make_unique<GifMerger>();
  temp_.Write("self", GifAround(0, 2, Bytes({255}) + std::string(20, '\0')));
  const platform::OwnedFile self = platform::OpenFile(temp_ / "self", "ab");
  std::setvbuf(self.get(), nullptr, _IONBF, 0);
  CaptureStderr();
  EXPECT_EQ(merger_->AppendFile(temp_ / "self", self.get(), false), GifFrameResult::kBrokenOff);
  EXPECT_EQ(merger_->AppendFile(temp_ / "missing", nullptr, true), GifFrameResult::kNotOpened);
  EXPECT_EQ(merger_->AppendFile(temp_.Path(), nullptr, true), GifFrameResult::kNotOpened);
  EXPECT_EQ(GetCapturedStderr(), brokenOff + "Can't open " + (temp_ / "missing") +
                                     " for reading.\nCan't open " + temp_.Path() +
                                     " for reading.\n");
}

// Codes of about the width that the reader expects, which lead through every corner of the table:
// few clears, strings made out of order, first codes that are not in the table.
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
  return GifAround(static_cast<int>(upTo(7)), size, data + std::string(upTo(9), '\1'));
}

TEST_F(GifFixture, RandomFilesGiveWhatTheLiteralStepsGive) {
  std::mt19937 random(1);
  int circles = 0;
  int filled = 0;
  for (int round = 0; round < 400; ++round) {
    merger_ = std::make_unique<GifMerger>();
    const auto literal = std::make_unique<LiteralMerger>();
    std::vector<std::string> files;
    do {
      files.push_back(RandomFile(random));
      literal->Append(files.back(), files.size() == 1);
    } while (!literal->ended && files.size() < 4);
    ASSERT_EQ(Merge(files), literal->output) << round;
    ASSERT_EQ(errors_, literal->messages) << round;
    ASSERT_EQ(results_.back() == GifFrameResult::kBrokenOff, literal->ended) << round;
    circles += literal->messages.find("Sending") != std::string::npos ? 1 : 0;
    filled += literal->messages.find("GetNext") != std::string::npos ? 1 : 0;
  }
  EXPECT_GT(circles, 20);
  EXPECT_GT(filled, 5);
}

TEST_F(GifFixture, RealImagesCopyExactlyAndBreakOffAtEveryByte) {
  std::mt19937 random(2);
  std::string pixels(30000, '\1');
  for (int index = 0; index < 30000; ++index) {
    pixels += static_cast<char>(random());
  }
  const std::string large = GifOfPixels(300, 200, 8, pixels);
  const std::string merged = Merge({large});
  const std::size_t image = 13 + 768 + 10;
  EXPECT_EQ(merged.substr(image + 8 + 19), large.substr(image, large.size() - 1 - image));
  EXPECT_EQ(errors_, "");
  for (std::size_t length = 0; length < kFrame.size(); ++length) {
    merger_ = std::make_unique<GifMerger>();
    LiteralMerger literal;
    literal.Append(kFrame.substr(0, length), true);
    EXPECT_EQ(Merge({kFrame.substr(0, length)}), literal.output) << length;
    EXPECT_EQ(errors_, literal.messages) << length;
  }
}

TEST_F(GifFixture, FramesBecomeOneAnimation) {
  const std::string tag = "TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():";
  const struct {
    int rate;
    int delay;
  } cases[] = {{16, 6}, {30, 3}, {25, 4}, {31, 3}, {1000, 0}, {1, 100}, {0, 6}, {-5, 6}};
  for (const auto& test : cases) {
    frames_.Write("f10.gif", kFrame);
    frames_.Write("f2.GIF", kFrame);
    EXPECT_EQ(Create(test.rate), 1);
    LiteralMerger literal;
    literal.delay = test.delay;
    literal.Append(kFrame, true);
    literal.Append(kFrame, false);
    EXPECT_EQ(ReadBytes("out.gif"), literal.output + ";") << test.rate;
    EXPECT_EQ(errors_, "");
    EXPECT_THAT(frames_.Names(), IsEmpty()) << "frames are used up";
  }
  EXPECT_THAT(Log(), IsSupersetOf({tag + "Start", tag + "done", tag + "End"}));
  EXPECT_THAT(temp_.Names(), ElementsAre("log.txt", "out.gif"));
}

TEST_F(GifFixture, WhatCannotBeMadeIsToldAndTheRestGoesOn) {
  EXPECT_EQ(Create(16), 0) << "no frames";
  EXPECT_EQ(Log().back(), "TessaraAnimationConsole::k3dGifAnimCreator::GetTheImageFiles():End");

  frames_.Write("f1.bmp", "no picture");
  frames_.Write("f2.gif", kFrame);
  EXPECT_EQ(Create(16, temp_ / "missing\\out.gif"), 0);
  EXPECT_EQ(Log().back(),
            "TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():Not able to open the "
            "output file");
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
  EXPECT_EQ(errors_, "GIF_Read_Header: Unexpected End of File\n") << "the output is an input";
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
  EXPECT_EQ(Create(25), 1);
  EXPECT_EQ(errors_, "");
  const std::string made = ReadBytes("out.gif");
  EXPECT_THAT(made, StartsWith("GIF89a" + Bytes({4, 0, 2, 0})));
  EXPECT_THAT(made, EndsWith(Bytes({0, ';'})));
  EXPECT_GT(made.size(), 2 * 768U) << "two colour tables";
}

TEST_F(GifFixture, CommandLine) {
  const struct {
    std::array<const char*, 5> arguments;
    int rate;
  } cases[] = {
      {{"program", "in", "out.gif", "-FR", "30"}, 30},
      {{"program", "in", "out.gif", "-FR", "31"}, 16},
      {{"program", "in", "out.gif", "x-fr", "-5"}, -5},
      {{"program", "in", "out.gif", "-SF", "-FR"}, -5},
  };
  for (const auto& test : cases) {
    EXPECT_TRUE(ParseCommandLineForGIF(5, const_cast<char**>(test.arguments.data())));
    EXPECT_EQ(g_gifAnimCreator.m_nFrameRate, test.rate);
    EXPECT_EQ(g_gifAnimCreator.m_sInputFolder, "in");
    EXPECT_EQ(g_gifAnimCreator.m_sOutputFile, "out.gif");
  }
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
  EXPECT_EQ(brokenOff.errors, "EOF in data stream\n");
  EXPECT_GT(ReadBytes("out.gif").size(), kFrame.size()) << "flushed";
  EXPECT_EQ(frames_.Names().size(), 2U) << "frames stay";

  frames_.Write("f2.gif", kFrame);
  EXPECT_EQ(run({frames_.Path(), temp_ / "out.gif", "-FR", "50"}).exitStatus, 0);
  EXPECT_THAT(ReadBytes("out.gif"), EndsWith(";"));
}

}  // namespace
