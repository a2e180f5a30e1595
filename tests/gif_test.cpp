#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>

#include "gif/gif_anim_creator.h"
#include "gif/gif_copier.h"
#include "log/working_folders.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/gdiplus.h"
#include "platform/images.h"
#include "tests/reference/literal_merger.h"
#include "tests/support/gif_builder.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::StartsWith;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class GifFixture : public LogFixture {
 protected:
  // Has a new merger with the settings append files one after the other, the first with the first
  // flag, those from `fixedFrom` on at the fixed position. Returns what went to the output.
  std::string Merge(const std::vector<std::string>& files, const GifSettings& settings = {},
                    std::size_t fixedFrom = 100) {
    const auto merger = std::make_unique<GifMerger>();
    results_.clear();
    {
      const platform::OwnedFile output = platform::OpenFile(temp_ / "out", "wb");
      const platform::OwnedFile messages = platform::OpenFile(temp_ / "messages", "wb");
      merger->settings = settings;
      merger->settings.messages = messages.get();
      for (const std::string& file : files) {
        merger->settings.fixedPosition |= results_.size() >= fixedFrom;
        results_.push_back(merger->AppendBytes(file, output.get(), results_.empty()));
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
    // Frames that it forgets.
    creator->m_caeData.m_saImageFiles.Add("frame of another animation.gif");
    CaptureStderr();
    const int status = creator->CreateAnimatedGif();
    errors_ = GetCapturedStderr();
    return status;
  }

  std::string ReadBytes(const std::string& name) const {
    std::ifstream file(temp_.Path() + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
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
const std::string kFour = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
const std::string kFrame = GifOfPixels(2, 2, 2, Bytes({0, 1, 2, 3}));

TEST(GifBlocks, FirstFaultOfAFile) {
  const std::string start = "GIF87a" + kScreen + kColours;
  const std::string image = kImage + Bytes({0}) + kData + Bytes({0});
  const std::tuple<std::string, GifFault, std::size_t> cases[] = {
      {"GIF88a" + start.substr(6) + image + ";", GifFault::kNoGif, 0},
      {"GIF87a" + Bytes({0, 0, 1, 0, 0, 0, 0, ';'}), GifFault::kNoScreen, 0},
      {start + ";", GifFault::kNoImage, 0},
      {start + image + image + ";,", GifFault::kNone, 2},
      {start + image + Bytes({0}) + ";", GifFault::kUnknownBlock, 1},
      {start + "," + Bytes({0, 0, 0, 0, 1, 0, 0, 0, 0}) + kData, GifFault::kEmptyImage, 0},
      {start + "," + Bytes({2, 0, 2, 0, 2, 0, 1, 0, 0}) + kData, GifFault::kImageOutsideScreen, 0},
      {start + "," + Bytes({1, 0, 3, 0, 2, 0, 1, 0, 0}) + kData, GifFault::kImageOutsideScreen, 0},
      {start + kImage + Bytes({0, 1, 0}), GifFault::kCodeSize, 0},
      {start + kImage + Bytes({0, 9, 0}), GifFault::kCodeSize, 0},
      {start + kImage + Bytes({0, 8, 0}), GifFault::kNoData, 0},
      {"GIF89a" + Bytes({3, 0, 3, 0, 0x70, 0, 0}) + image, GifFault::kNoColours, 0},
  };
  for (const auto& [file, fault, images] : cases) {
    const GifBlocks blocks = ReadGifBlocks(file);
    EXPECT_EQ(std::pair(blocks.fault, blocks.images.size()), std::pair(fault, images))
        << TextOf(fault) << testing::PrintToString(file);
  }
}

// What an image is shown with, delay and disposal apart.
auto Shown(const std::string& file, const GifBlocks& blocks, std::size_t index) {
  const GifImage& image = blocks.images.at(index);
  const GifSpan& colours = image.colours.size != 0 ? image.colours : blocks.colours;
  return std::tuple(image.left, image.top, image.width, image.height, image.interlaced,
                    image.control.transparent, file.substr(colours.offset, colours.size),
                    file.substr(image.data.offset, image.data.size));
}

TEST(GifBlocks, WhatAFileHoldsInAnyPieces) {
  // Separators and trailers where they mean nothing; a control that an empty extension, one of
  // another length and an image follow, which ends it.
  const std::string data = Bytes({3, 2, ';', ',', 1, '!', 0});
  const std::string last = kImage + Bytes({0}) + data + ";";
  const std::string file = "GIF89a" + kScreen + kColours + Bytes({'!', 0xFE, 2, ',', ';', 0}) +
                           Bytes({'!', 0xF9, 4, 0x9D, ',', ';', 3, 0}) +
                           Bytes({'!', 0xFF, 0, '!', 0xF9, 3, 1, 1, 1, 0}) + kImage +
                           Bytes({0xC1}) + kFour + data + last;
  const auto read = [&](std::size_t size) {
    return ReadGifBlocks([cut = file.substr(0, size), at = std::size_t{0}](std::size_t) mutable {
      return cut.substr(std::min((at += 3) - 3, cut.size()), 3);
    });
  };
  for (std::size_t size = 0; size < file.size(); ++size) {
    const bool whole = size == file.size() - last.size() || size == file.size() - 1;
    const GifFault cut = size < 6 ? GifFault::kNoGif : GifFault::kCut;
    ASSERT_EQ(read(size).fault, whole ? GifFault::kNoTrailer : cut) << size;
  }
  const GifBlocks blocks = read(file.size());
  EXPECT_EQ(blocks.fault, GifFault::kNone);
  EXPECT_EQ(Shown(file, blocks, 0), std::tuple(1, 2, 2, 1, true, 3, kFour, data));
  EXPECT_EQ(Shown(file, blocks, 1), std::tuple(1, 2, 2, 1, false, std::nullopt, kColours, data));
  EXPECT_THAT((std::array{blocks.width, blocks.height, blocks.images[0].codeSize,
                          blocks.images[0].control.disposal, blocks.images[0].control.delay}),
              ElementsAre(3, 3, 3, 7, ',' + ';' * 256));
}

TEST(GifCopier, ShowsEachFrameAsItIsAlone) {
  const auto gif = [](int screen, const std::string& colours, const std::string& blocks) {
    return "GIF87a" + Bytes({3, 0, 3, 0, screen, 1, 7}) + colours + blocks;
  };
  const std::string whole = "," + Bytes({0, 0, 0, 0, 3, 0, 3, 0});
  const std::string control = Bytes({'!', 0xF9, 4, 1, 9, 9, 1, 0});
  // Interlaced, with bytes behind the end code; with a transparent colour; smaller than its screen;
  // with other colours.
  const std::string full =
      gif(0xF0, kColours, whole + Bytes({0x40}) + kData + Bytes({1, 5, 0, ';', 'x'}));
  const std::string clear = gif(0xF0, kColours, control + whole + Bytes({0}) + kData + Bytes({0}));
  const std::string small = gif(0x70, "", kImage + Bytes({0x81}) + kFour + kData + Bytes({0, ';'}));
  const std::string other = gif(0xF1, kFour, full.substr(19));
  const std::string later = gif(0xF1, kFour, whole + Bytes({0x80}) + kColours + kData + Bytes({0}));
  // Expected: the size of the global table, then for each image its disposal and own table.
  const std::pair<std::vector<std::string>, std::vector<std::size_t>> cases[] = {
      {{full, full, later}, {6, 1, 0, 1, 0, 1, 0}},
      {{later, other, full}, {12, 1, 6, 1, 0, 1, 6}},
      {{clear, clear}, {6, 2, 0, 2, 0}},
      {{full, clear, full, small}, {0, 2, 6, 1, 6, 2, 6, 1, 12}},
  };
  for (const auto& [frames, expected] : cases) {
    std::string made;
    GifCopier copier([&](std::string_view bytes) { made += bytes; });
    for (const std::string& frame : frames) {
      EXPECT_EQ(copier.Expect(ReadGifBlocks(frame)), GifRefusal::kNone);
    }
    EXPECT_EQ(copier.Expect(ReadGifBlocks("")), GifRefusal::kNotOneImage);
    EXPECT_EQ(copier.Expect(ReadGifBlocks(kFrame)), GifRefusal::kOtherSize);
    for (const std::string& frame : frames) {
      copier.Append(frame, ReadGifBlocks(frame), 0x203);
    }
    copier.Finish();
    const GifBlocks blocks = ReadGifBlocks(made);
    ASSERT_EQ(std::pair(blocks.fault, blocks.images.size()),
              std::pair(GifFault::kNone, frames.size()));
    EXPECT_THAT(made, StartsWith("GIF89a" + Bytes({3, 0, 3, 0})));
    EXPECT_EQ(made.substr(13 + blocks.colours.size, 19), kLoop);
    std::vector<std::size_t> found = {blocks.colours.size};
    for (std::size_t index = 0; index < frames.size(); ++index) {
      const GifImage& image = blocks.images[index];
      EXPECT_EQ(Shown(made, blocks, index), Shown(frames[index], ReadGifBlocks(frames[index]), 0));
      EXPECT_EQ(image.control.delay, 0x203);
      found.push_back(static_cast<std::size_t>(image.control.disposal));
      found.push_back(image.colours.size);
    }
    EXPECT_EQ(found, expected);
  }
}

TEST_F(GifFixture, SettingsShowInTheOutput) {
  const std::string file = "GIF87a" + kScreen + kColours + kImage + Bytes({0}) + kData;
  const std::string header = "GIF89a" + kScreen + kColours;
  EXPECT_EQ(Merge({file, file + ";"}), header + kControl + kLoop + kImage + Bytes({0}) + kData +
                                           Bytes({0}) + kControl + kImage + Bytes({0x80}) +
                                           kColours + kData + Bytes({0}));
  // Disposal, loops, delay, transparent colour, fixed position and place, verbose and debug.
  const GifSettings settings = {1,       0x304, 0x102, 40 + (50 << 8) + (61 << 16), true, 0x506, 7,
                                nullptr, true,  true};
  EXPECT_EQ(Merge({file}, settings),
            header + Bytes({0x21, 0xF9, 4, 5, 2, 1, 1, 0}) + kLoop.substr(0, 16) +
                Bytes({4, 3, 0, ',', 6, 5, 7, 0, 2, 0, 1, 0, 0}) + kData + Bytes({0}));
  EXPECT_EQ(errors_,
            "Screen: 3x3x2 m=128 cres=7 bkgnd=1 pix=0\n"
            "Transparent not matched fully, col #1 (40,50,60) used now\n"
            "Image: 2x1x2 m=0 i=0 pix=0 \n"
            "Clearing Table...\nIniting Table...Clearing Table...\nIniting Table...");
  // Red, green and blue count each; of colours equally near the lower index is taken.
  for (const int colour :
       {40 + (30 << 8) + (40 << 16), 20 + (50 << 8) + (40 << 16), 20 + (30 << 8) + (60 << 16)}) {
    Merge({file}, {.transparent = colour});
    EXPECT_THAT(errors_, HasSubstr("col #1 (40,50,60)"));
  }
  Merge({file}, {.transparent = 25 + (35 << 8) + (45 << 16)});
  EXPECT_THAT(errors_, HasSubstr("col #0 (10,20,30)"));
  EXPECT_THAT(Merge({file}, {.transparent = 0}), HasSubstr(Bytes({0x21, 0xF9, 4, 9, 1, 0, 0, 0})));
  // A code that equals the growing value at the full width, here an entry made out of order.
  const std::string codes = PackCodes({{0, 12}, {4095, 12}, {2049, 12}});
  const std::string wide = GifAround(7, 11, SubBlocks(codes));
  const std::string bare = Merge({wide}, {.loops = -1, .delay = -1, .debug = true});
  EXPECT_EQ(bare[13 + 768], ',') << "neither control block nor loop";
  EXPECT_EQ(errors_, "Clearing Table...\nIniting Table...<13?>");
  // A code beyond the table, which ends the information.
  Merge({GifAround(7, 12, SubBlocks(PackCodes({{0, 13}, {0, 13}, {4101, 13}})))});
  EXPECT_EQ(errors_, "\nError! in stream=1005 \nCLEAR=1000 INCSIZE=1fff EOI=1001 code_size=d \n");
}

TEST_F(GifFixture, AFileThatIsTheOutputAsWellDoesNotFeedOnItself) {
  const auto merger = std::make_unique<GifMerger>();
  temp_.Write("self", GifAround(0, 2, Bytes({255}) + std::string(20, '\0')));
  const platform::OwnedFile self = platform::OpenFile(temp_ / "self", "ab");
  std::setvbuf(self.get(), nullptr, _IONBF, 0);
  EXPECT_EQ(merger->AppendFile(temp_ / "self", self.get(), false), GifFrameResult::kBrokenOff);
}

TEST_F(GifFixture, AFolderIsNoFrame) {
  // Some systems open it like a file.
  const auto merger = std::make_unique<GifMerger>();
  const platform::OwnedFile output = platform::OpenFile(temp_ / "out", "wb");
  EXPECT_EQ(merger->AppendFile(temp_.Path(), output.get(), true), GifFrameResult::kNotOpened);
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
    const unsigned any = upTo(std::min(made, (1U << width) - 1));
    const unsigned code = width == 13 && upTo(2) == 0 ? 4100 : any;
    codes.push_back({code == clear + 1 && upTo(20) != 0 ? 0 : code, width});
    made = code == clear ? clear + 2 : std::min(made + 1, size == 12 ? 8191U : 4095U);
  }
  std::string data = SubBlocks(PackCodes(codes), 1 + upTo(254)) + std::string(upTo(9), '\1');
  if (upTo(5) == 0) {
    data.insert(upTo(static_cast<unsigned>(data.size())), 1, '\0');
  }
  const unsigned sizeField = upTo(7);
  std::string file = GifAround(static_cast<int>(sizeField), size, data);
  const std::size_t left = 14 + (6U << sizeField);
  std::generate_n(&file[left], 4, [&] { return static_cast<char>(random()); });
  if (upTo(3) == 0) {
    const unsigned local = upTo(7);
    file[left + 8] = static_cast<char>(0x80 | local);
    file.insert(left + 9, 6U << local, static_cast<char>(random()));
  }
  if (upTo(5) == 0) {
    file[10] &= 0x7F;
    file.erase(13, 6U << sizeField);
  }
  // Cut anywhere, or right before the data.
  const std::size_t cut = upTo(2) == 0 ? data.size() + 1 : upTo(static_cast<unsigned>(file.size()));
  return upTo(4) == 0 ? file.substr(0, file.size() - cut) : file;
}

TEST_F(GifFixture, DataGoOnBeyondTheEndOfTheBuffer) {
  std::mt19937 random(1);
  std::string pixels(std::size_t{16} * 16, ' ');
  std::generate(pixels.begin(), pixels.end(), [&] { return static_cast<char>(random()); });
  const std::string gif = GifOfPixels(16, 16, 8, pixels);
  constexpr std::size_t kTableEnd = 13 + 768;
  // Behind so long a comment that any byte of a sub-block is the last one in the buffer.
  std::string comment = "!\xFE";
  while (comment.size() < 64200) {
    comment += "\xFF" + std::string(255, 'c');
  }
  for (int rest = 1; rest < 256; ++rest) {
    const std::string file = gif.substr(0, kTableEnd) + comment + static_cast<char>(rest) +
                             std::string(static_cast<std::size_t>(rest), 'c') + '\0' +
                             gif.substr(kTableEnd);
    const auto literal = std::make_unique<LiteralMerger>();
    literal->Append(file, true);
    ASSERT_EQ(Merge({file}), literal->output) << rest;
  }
}

TEST_F(GifFixture, RandomFilesGiveWhatTheLiteralStepsGive) {
  std::mt19937 random(1);
  std::string messages;
  for (int round = 0; round < 400; ++round) {
    const auto literal = std::make_unique<LiteralMerger>();
    const std::size_t fixedFrom = random() % 4;
    std::vector<std::string> files;
    std::vector<GifFrameResult> results;
    do {
      literal->fixedPosition = files.size() >= fixedFrom;
      files.push_back(RandomFile(random));
      results.push_back(literal->Append(files.back(), results.empty()));
    } while (results.back() != GifFrameResult::kBrokenOff && files.size() < 4);
    ASSERT_EQ(Merge(files, {}, fixedFrom), literal->output) << round;
    ASSERT_EQ(errors_, literal->messages) << round;
    ASSERT_EQ(results_, results) << round;
    messages += errors_;
  }
  EXPECT_THAT(messages, testing::AllOf(HasSubstr("index=4100"), HasSubstr("GetNext")));
}

TEST_F(GifFixture, FramesBecomeOneAnimation) {
  const std::string tag = "TessaraAnimationConsole::k3dGifAnimCreator::";
  std::string pixels(110000, '\1');
  std::generate_n(&pixels[30000], 80000, std::mt19937(2));
  const std::string large = GifOfPixels(1100, 100, 8, pixels);
  for (const auto& [rate, delay] : {std::pair{30, 3}, {1000, 0}, {1, 100}, {0, 6}}) {
    frames_.Write("f10.gif", large);
    frames_.Write("f2.GIF", kFrame);
    temp_.Write("old_qmbImgTemp_1.png");
    EXPECT_EQ(Create(rate), 1);
    EXPECT_EQ(errors_, "");
    const std::string made = ReadBytes("out.gif");
    EXPECT_EQ(made, Merge({kFrame, large}, {.delay = delay}) + ";") << rate;
    EXPECT_THAT(made, testing::EndsWith(large.substr(13 + 768 + 10))) << "what an encoder wrote";
    EXPECT_THAT(frames_.Names(), testing::IsEmpty()) << "frames are used up";
  }
  EXPECT_THAT(Log(),
              IsSupersetOf({tag + "CreateAnimatedGif():Start", tag + "GetTheImageFiles():Start",
                            tag + "CreateAnimatedGif():done", tag + "CreateAnimatedGif():End"}));
  EXPECT_THAT(temp_.Names(), ElementsAre("log.txt", "messages", "out", "out.gif")) << "swept";
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
  EXPECT_THAT(ReadBytes("out.gif"), StartsWith("!" + Bytes({0xF9}))) << "nobody writes the header";
  EXPECT_EQ(errors_, "Can't open " + (temp_ / "_console_qmbImgTemp_.gif") + " for reading.\n");
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
  g_tempRoot = "";
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  EXPECT_FALSE(platform::FindImageEncoder(L"image/none"));
  frames_.Write("f1.BMP", bmp);
  frames_.Write("f2.bmp", bmp);
  frames_.Write("f3.bmp", "no picture");
  EXPECT_EQ(Create(25), 1);
  EXPECT_THAT(errors_, StartsWith("Can't open "));
  const GifBlocks made = ReadGifBlocks(ReadBytes("out.gif"));
  EXPECT_EQ(std::tuple(made.fault, made.width, made.height, made.images.size()),
            std::tuple(GifFault::kNone, 4, 2, 2U));
  EXPECT_EQ(frames_.Names().size(), kIsWindows ? 2U : 0U) << "what was loaded is held there";

  EXPECT_EQ(g_tempRoot, temp_.Path()) << "fixed when nobody has";
  EXPECT_EQ(TemporaryGifPath(g_tempRoot), temp_ / "_console_qmbImgTemp_.gif");
  EXPECT_EQ(TemporaryGifPath(""), platform::SystemTempFolder() + "\\_console_qmbImgTemp_.gif");
}

TEST_F(GifFixture, ExampleEndsWithTheStatusOfWhatItMade) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const auto run = [&](const std::vector<std::string>& arguments) {
    return RunProgram(TESSARA_GIF_EXAMPLE, arguments, temp_.Path());
  };
  EXPECT_THAT(run({frames_.Path()}).output, HasSubstr("gif_animation InputFolder OutputFile"));
  EXPECT_EQ(run({frames_.Path(), temp_ / "out.gif"}).exitStatus, 1) << "no frames";

  const std::string wrong = temp_ / "out.gif" + " cannot be shown: it ";
  const std::string control = kControl.substr(0, 4);
  const struct {
    std::string first, second, option, rate;
    int status;
    std::string errors, made;
  } cases[] = {
      {kFrame, kFrame, "-fr", "30", 0, "", control + Bytes({3, 0})},
      {kFrame, kFrame.substr(0, kFrame.size() - 4), "-FR", "31", 4, kBrokenOff,
       control + Bytes({6, 0})},
      {"", kFrame, "", "", 1, kNoImage + wrong + "lacks the first frame, which brings its size.\n",
       kLoop},
      {GifAround(0, ';', ""), kFrame, "", "", 1,
       "\nError! in stream=3b \n" + wrong + "holds an image whose code size is not 2 to 8.\n",
       kLoop},
  };
  for (const auto& test : cases) {
    frames_.Write("f1.gif", test.first);
    frames_.Write("f2.gif", test.second);
    const auto result = run({frames_.Path(), temp_ / "out.gif", test.option, test.rate});
    EXPECT_EQ(result.exitStatus, test.status);
    EXPECT_EQ(result.errors, test.errors);
    EXPECT_THAT(ReadBytes("out.gif"), HasSubstr(test.made));
    EXPECT_EQ(frames_.Names().size(), test.status == 4 ? 2U : 0U);
  }
}

}  // namespace
