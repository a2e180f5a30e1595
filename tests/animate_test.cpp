// TessaraAnimate as a whole, with the real converter.
#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "animate/progress_line.h"
#include "animate/shown.h"
#include "converter/packets.h"
#include "tests/support/gif_builder.h"
#include "tests/support/image_files.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"
#include "tests/support/variables.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Words = std::vector<std::string>;

const std::string kConverter =
    std::string(TESSARA_INSTALLATION "/TessaraPro64/") + platform::ExecutableFileName("ffmpeg");

// Small pictures of every type; all of picture N is of the grey level 2 N.
constexpr int kSamples = 61;

ProgramResult Convert(const Words& arguments, const TempFolder& folder) {
  Words words = {"-v", "error", "-nostdin", "-y"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return RunProgram(kConverter, words, folder.Path());
}

const TempFolder& Samples() {
  static const TempFolder folder;
  if (folder.Names().empty()) {
    Words words = {"-f", "lavfi", "-i",
                   "color=black:s=16x16:r=25,format=rgb24,geq=r=2*N:g=2*N:b=2*N"};
    for (const auto& [extension, codec, format] : {std::array{"png", "png", "gray"},
                                                   {"jpg", "mjpeg", "yuvj444p"},
                                                   {"bmp", "bmp", "bgr24"},
                                                   {"tiff", "tiff", "gray"}}) {
      words.insert(words.end(), {"-frames:v", std::to_string(kSamples), "-start_number", "0",
                                 "-c:v", codec, "-q:v", "1", "-pix_fmt", format, "-f", "image2",
                                 std::string("%d.") + extension});
    }
    EXPECT_EQ(Convert(words, folder).errors, "");
  }
  return folder;
}

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The content of sample `number` of the type that an extension in lower case names.
std::string Sample(int number, const std::string& extension) {
  if (extension == "gif") {
    // The converter would write them into one file.
    std::string file = GifOfPixels(16, 16, 8, std::string(256, static_cast<char>(2 * number)));
    for (std::size_t index = 0; index < 768; ++index) {
      file[13 + index] = static_cast<char>(index / 3);
    }
    return file;
  }
  return ContentOf(Samples().File(std::to_string(number) + "." + extension));
}

// The frames of a folder by their names, which may be in any language.
using Frames = std::vector<std::pair<fs::path, std::string>>;

class AnimateTest : public testing::Test {
 protected:
  AnimateTest() { variables_.Set("TESSARA_DIR", TESSARA_INSTALLATION); }
  ~AnimateTest() override { EXPECT_THAT(temp_.Names(), IsEmpty()) << "left behind"; }

  void Fill(const Frames& frames) {
    frames_.Clear();
    for (const auto& [name, content] : frames) {
      std::ofstream(fs::path(frames_.Path()) / name, std::ios::binary) << content;
    }
    filled_ = frames;
  }

  // Numbered frames of one type, of the samples with these numbers.
  void FillNumbered(const std::vector<int>& numbers, const std::string& extension = "png") {
    Frames frames;
    for (const int number : numbers) {
      frames.emplace_back("f" + std::to_string(number) + "." + extension,
                          Sample(number, extension));
    }
    Fill(frames);
  }

  // Runs the program with everything temporary where the test can see it.
  ProgramResult RunAlone(const Words& arguments) const {
    Variables here;
    here.SetTemporaryFolder(temp_.Path());
    return RunProgram(TESSARA_ANIMATE, arguments, output_.Path());
  }

  // Runs the program on the folder of frames, which has to stay as it was.
  ProgramResult Run(const Words& arguments) {
    Words words = {frames_.Path()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    ProgramResult result = RunAlone(words);
    for (const auto& [name, content] : filled_) {
      EXPECT_TRUE(ContentOf(fs::path(frames_.Path()) / name) == content) << name << " was changed";
    }
    EXPECT_EQ(frames_.Names().size(), filled_.size());
    return result;
  }

  // The grey levels of the frames of an animation, divided by 2.
  std::vector<int> Levels(const std::string& name) {
    TempFolder raw;
    Convert({"-i", output_.Path() + "/" + name, "-vsync", "0", "-vf", "crop=1:1:8:8,format=gray",
             "-f", "rawvideo", "raw"},
            raw);
    std::vector<int> levels;
    for (const char level : ContentOf(raw.File("raw"))) {
      levels.push_back((static_cast<unsigned char>(level) + 1) / 2);
    }
    return levels;
  }

  // What a picture drawn by the converter's own source is in a file of a codec.
  static std::string Drawn(const std::string& source, const std::string& codec) {
    const TempFolder drawn;
    Convert({"-f", "lavfi", "-i", source, "-frames:v", "1", "-c:v", codec, "-q:v", "1", "-f",
             "image2", "drawn"},
            drawn);
    return ContentOf(drawn.File("drawn"));
  }

  // The pixels of an animation, three bytes each.
  std::string Rgb(const std::string& name, const std::string& filter = "format=rgb24") {
    const TempFolder raw;
    Convert(
        {"-i", output_.Path() + "/" + name, "-vsync", "0", "-vf", filter, "-f", "rawvideo", "raw"},
        raw);
    return ContentOf(raw.File("raw"));
  }

  static void ExpectNear(const std::string& rgb, std::size_t pixel, std::array<int, 3> colour) {
    ASSERT_LE(pixel * 3 + 3, rgb.size());
    for (std::size_t index = 0; index < 3; ++index) {
      EXPECT_NEAR(static_cast<unsigned char>(rgb[pixel * 3 + index]), colour[index], 4) << pixel;
    }
  }

  // How many pictures the converter finds in an animation, and how many seconds it counts from the
  // first to the last.
  std::pair<std::size_t, double> CountAndSpan(const std::string& name) {
    std::istringstream lines(
        Convert({"-i", output_.Path() + "/" + name, "-vsync", "0", "-f", "framecrc", "-"}, output_)
            .output);
    animate::Packets packets;
    for (std::string line; std::getline(lines, line);) {
      packets.Take(line);
    }
    return {packets.count, static_cast<double>(packets.last - packets.first) * packets.tick};
  }

  TempFolder frames_;
  TempFolder output_;

 private:
  Variables variables_;
  TempFolder temp_;
  Frames filled_;
};

TEST(AnimateWords, QuantitiesReadWell) {
  using animate::ShownBytes;
  using animate::ShownDuration;
  EXPECT_EQ(ShownBytes(999) + " " + ShownBytes(1000) + " " + ShownBytes(999'499),
            "999 bytes 1 kB 999 kB");
  EXPECT_EQ(ShownBytes(999'500) + " " + ShownBytes(9'940'000), "1.0 MB 9.9 MB");
  EXPECT_EQ(ShownBytes(9'960'000) + " " + ShownBytes(2'000'000'000'000'000), "10 MB 2000 TB");
  EXPECT_EQ(ShownDuration(0.4) + " " + ShownDuration(65) + " " + ShownDuration(3599.4),
            "0:00 1:05 59:59");
  EXPECT_EQ(ShownDuration(3600) + " " + ShownDuration(1e9), "1:00:00 99:59:59");
}

TEST(AnimateWords, TheProgressLineFillsTheTerminal) {
  const struct {
    std::size_t done, width;
    const char* line;
  } kCases[] = {
      {0, 28, "[..........] 0 of 120 frames"},
      {60, 40, "[#####.....] 60 of 120 frames, 0:10 left"},
      {119, 41, "[#########.] 119 of 120 frames, 0:00 left"},
      {130, 36, "[#####] 120 of 120 frames, 0:00 left"},
      {60, 10, "[] 60 of 120 frames, 0:10 left"},
      {0, 60, "[........................................] 0 of 120 frames  "},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(animate::ProgressText(c.done, 120, 10, c.width), c.line);
  }
}

TEST_F(AnimateTest, MakesTheRightMovieOfEveryFolder) {
  const auto numbered = [](const std::string& format, int first, int last,
                           const std::string& type) {
    Frames frames;
    for (int number = last; number >= first; --number) {
      char name[100];
      std::snprintf(&name[0], sizeof(name), format.c_str(), number);
      frames.emplace_back(fs::path(reinterpret_cast<const char8_t*>(&name[0])),
                          Sample(number, type));
    }
    return frames;
  };
  const struct {
    Frames frames;
    int first;
  } kCases[] = {
      {numbered("frame_%d.png", 1, 60, "png"), 1},
      {numbered("%d.bmp", 8, 12, "bmp"), 8},
      {numbered("%03d_temp.tif", 8, 12, "tiff"), 8},
      {numbered("DSC%05d.JPG", 8, 12, "jpg"), 8},
      {numbered("%d.gif", 8, 12, "gif"), 8},
      {numbered("100%% of (%d)'s.png", 8, 12, "png"), 8},
      {numbered("\xE6\x97\xA5\xE6\x9C\xAC e\xCC\x81 \xD0\xBA%d.png", 8, 12, "png"), 8},
  };
  for (const auto& c : kCases) {
    Fill(c.frames);
    const ProgramResult result = Run({"out.apng", "--overwrite"});
    ASSERT_EQ(result.exitStatus, 0) << c.frames[0].first << result.errors;
    const std::vector<int> levels = Levels("out.apng");
    ASSERT_EQ(levels.size(), c.frames.size()) << c.frames[0].first;
    for (std::size_t index = 0; index < levels.size(); ++index) {
      ASSERT_EQ(levels[index], c.first + static_cast<int>(index)) << c.frames[0].first;
    }
    EXPECT_THAT(output_.Names(), ElementsAre("out.apng"));
  }
}

TEST_F(AnimateTest, SaysWhatItFoundAndMade) {
  Frames frames = {{"logo.jpg", "no matter"}, {"old_1.gif", ""}, {"old_2.gif", ""}};
  for (const char* name : {"f01.png", "f1.png", "f2.png", "f5.png", "f6.png", "f8.png", "f9.png"}) {
    frames.emplace_back(name, Sample(1, "png"));
  }
  Fill(frames);
  const std::string findings =
      "frames: f01.png to f9.png, 7 frames\n"
      "missing: 3 numbers: 3 to 4 (after f2.png), 7 (after f6.png)\n"
      "twice: 1 number, each is a frame: f1.png (after f01.png)\n"
      "left out: old_1.gif to old_2.gif (2), logo.jpg\n";
  const ProgramResult list = Run({"--list", "--fill-gaps"});
  EXPECT_EQ(list.exitStatus, 0);
  EXPECT_EQ(list.errors, findings);
  const auto pathsOf = [&](const Words& names) {
    std::string paths;
    for (const std::string& name : names) {
      paths += (fs::path(frames_.Path()) / name).string() + ".png\n";
    }
    return paths;
  };
  EXPECT_EQ(list.output, pathsOf({"f01", "f1", "f2", "f2", "f2", "f5", "f6", "f6", "f8", "f9"}));
  EXPECT_EQ(Run({"--list", "--speed", "16"}).errors,
            findings + "unseen: 1 frame stands for less than a tick of 16 frames a second\n");
  EXPECT_EQ(Run({"--list", "--every", "3", "-q"}).output, pathsOf({"f01", "f5", "f9"}));
  EXPECT_THAT(Run({"--list", "--expect", "1-11"}).errors,
              HasSubstr("that --expect asks for: 3 to 4, 7, 10 to 11\n"));

  const ProgramResult made = Run({"out.mp4", "--fill-gaps", "-r", "2.5", "--size", "15x17"});
  EXPECT_EQ(made.errors, findings + "making: " + (fs::path(output_.Path()) / "out.mp4").string() +
                             ", 10 frames (3 of them held) at 2.5 frames a second, 16x18\n");
  EXPECT_THAT(made.output,
              testing::StartsWith("out.mp4: 10 frames, 4.0 s at 2.5 frames a second, 16x18, "));
  const ProgramResult quiet = Run({"out.mp4", "-q", "--overwrite"});
  EXPECT_EQ(quiet.output + quiet.errors, "");
}

TEST_F(AnimateTest, MakesGifsOfFewColoursAndOfMany) {
  FillNumbered({10, 40, 60});
  EXPECT_EQ(Run({"few.gif", "--quality", "50"}).exitStatus, 0);
  EXPECT_THAT(Levels("few.gif"), ElementsAre(10, 40, 60));
  // Many colours that come late, and films of sizes that are kept or not.
  const std::string noise = Drawn("color=black:s=16x16,format=rgb24,noise=alls=100", "png");
  for (const auto& [last, size, quality] : {std::tuple{"f3.png", "64x64", "80"},
                                            {"f3.png", "2400x2400", "80"},
                                            {"f60.png", "880x880", "79"}}) {
    Fill({{"f1.png", Sample(1, "png")}, {"f2.png", Sample(2, "png")}, {last, noise}});
    const ProgramResult result =
        Run({"many.gif", "--overwrite", "--fill-gaps", "--size", size, "--quality", quality});
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(Levels("many.gif")[1], 2);
  }
}

TEST_F(AnimateTest, HoldsFramesAndShowsThemOnASheet) {
  FillNumbered({1, 2, 3, 6, 7});
  EXPECT_EQ(Run({"out.apng", "--fill-gaps", "--contact-sheet", "sheet.png"}).exitStatus, 0);
  EXPECT_THAT(Levels("out.apng"), ElementsAre(1, 2, 3, 3, 3, 6, 7));
  EXPECT_EQ(Levels("sheet.png").size(), 1U);
}

TEST_F(AnimateTest, PutsFramesOnTheBackgroundInTheMiddle) {
  Fill({{"f1.png", Drawn("color=red@0.5:s=5x2,format=rgba", "png")},
        {"f2.png", Drawn("color=blue:s=6x1,format=rgb24", "png")}});
  EXPECT_THAT(Run({"laid.apng", "--background", "#008000"}).errors,
              HasSubstr("laid on #008000 (--background)"));
  // A row of the first frame, and the column of the second.
  const std::string laid = Rgb("laid.apng");
  ExpectNear(laid, 0, {128, 64, 0});
  ExpectNear(laid, 4, {128, 64, 0});
  ExpectNear(laid, 5, {0, 128, 0});
  ExpectNear(laid, 12, {0, 0, 255});
  ExpectNear(laid, 18, {0, 128, 0});
  // Twice as large, as far as the shape goes, and even.
  EXPECT_THAT(Run({"fit.mp4", "--size", "13x"}).output, HasSubstr(", 14x4, "));
  EXPECT_THAT(Run({"fit.webm", "--size", "x4"}).output, HasSubstr(", 12x4, "));
  EXPECT_EQ(Run({"fit.apng", "--size", "12x5", "--background", "black"}).exitStatus, 0);
  const std::string fitted = Rgb("fit.apng");
  ExpectNear(fitted, 12 * 1 + 3, {128, 0, 0});
  ExpectNear(fitted, 12 * 4 + 3, {0, 0, 0});
  // One pixel high in the middle.
  EXPECT_EQ(Run({"low.apng", "--size", "3x3", "--background", "black"}).exitStatus, 0);
  ExpectNear(Rgb("low.apng"), 1, {0, 0, 0});
  ExpectNear(Rgb("low.apng"), 4, {128, 0, 0});
  // Where transparency can stay it does.
  EXPECT_THAT(Run({"kept.apng"}).errors, testing::Not(HasSubstr("laid")));
  ExpectNear(Rgb("kept.apng", "alphaextract,format=rgb24"), 0, {128, 128, 128});
}

TEST_F(AnimateTest, TurnsFramesAsTheirFilesAsk) {
  // Of a picture that is red on its left; it is to be turned right.
  const std::string exif =
      "\xFF\xE1\0\x22"s
      "Exif\0\0MM\0*\0\0\0\x08\0\1\1\x12\0\3\0\0\0\1\0\6\0\0\0\0\0\0"s;
  std::string turned = Drawn("color=red:s=16x16[a];color=blue:s=16x16[b];[a][b]hstack", "mjpeg");
  turned.insert(2, exif);
  Fill({{"f1.jpg", turned}, {"f2.jpg", turned}});
  EXPECT_THAT(Run({"turned.apng"}).output, HasSubstr(", 16x32, "));
  const std::string seen = Rgb("turned.apng");
  ExpectNear(seen, 8, {255, 0, 0});
  ExpectNear(seen, 31 * 16 + 8, {0, 0, 255});
  // And one that is to be seen as it is, beside it.
  Fill({{"f1.jpg", Drawn("color=lime:s=32x8", "mjpeg")}, {"f2.jpg", turned}});
  EXPECT_THAT(Run({"both.apng"}).output, HasSubstr(", 32x32, "));
  const std::string both = Rgb("both.apng");
  ExpectNear(both, std::size_t{11} * 32, {255, 255, 255});
  ExpectNear(both, std::size_t{12} * 32, {0, 255, 0});
  ExpectNear(both, 32 * 32 + 8, {255, 0, 0});
  ExpectNear(both, 32 * 32 + 7, {255, 255, 255});
}

TEST_F(AnimateTest, ColoursComeBackFromEveryFormat) {
  for (const std::size_t width : {64U, 1280U}) {
    std::string pixels;
    for (std::size_t pixel = 0; pixel < 32 * width; ++pixel) {
      pixels += std::string(pixel % width < width / 2 ? "\x20\xE0\x10" : "\xC0\x20\xF0") + "\xFF";
    }
    Fill({{"f1.bmp", BitmapFile(static_cast<int>(width), pixels)},
          {"f2.bmp", BitmapFile(static_cast<int>(width), pixels)}});
    const std::string guess = width == 64 ? "bt601" : "bt709";
    for (const auto& [format, matrix] : {std::pair{"mp4", "bt709"s},
                                         {"mov", "bt709"s},
                                         {"webm", "bt709"s},
                                         {"gif", "auto"s},
                                         {"avi", guess},
                                         {"wmv", guess},
                                         {"flv", guess},
                                         {"swf", guess}}) {
      const std::string name = "colours" + std::to_string(width) + "." + format;
      ASSERT_EQ(Run({name}).exitStatus, 0) << name;
      const std::string seen =
          Rgb(name, "scale=in_color_matrix=" + matrix + ":in_range=tv,format=rgb24");
      SCOPED_TRACE(name);
      ExpectNear(seen, 16 * width + width / 4, {0x10, 0xE0, 0x20});
      ExpectNear(seen, 16 * width + width * 3 / 4, {0xF0, 0x20, 0xC0});
    }
  }
}

TEST_F(AnimateTest, SpreadsLevelsAndKeepsSixteenBits) {
  const auto deep = [](int value) {
    return Drawn("color=black:s=16x16,format=rgb48,lutrgb=r=val:g=" + std::to_string(value) +
                     ":b=1000,format=rgb48be",
                 "png");
  };
  Fill({{"f1.png", deep(3000)}, {"f2.png", deep(2001)}});
  EXPECT_THAT(Run({"deep.apng"}).errors, HasSubstr("use only 0 to 3000 of 0 to 65535"));
  EXPECT_EQ(Rgb("deep.apng", "format=rgb48be").substr(1536, 6), "\0\0\x07\xD1\x03\xE8"s);
  EXPECT_THAT(Run({"auto.mp4", "--levels", "auto"}).errors,
              HasSubstr("values from 0 to 3000, which are spread"));
  ExpectNear(Rgb("auto.mp4"), 0, {0, 255, 85});
  EXPECT_EQ(Run({"deep.apng", "--overwrite", "--levels", "0-65535"}).exitStatus, 0);
  EXPECT_EQ(Run({"some.gif", "--levels", "1000-5004"}).exitStatus, 0);
  ExpectNear(Rgb("some.gif"), 0, {0, 127, 0});
}

TEST_F(AnimateTest, FitsIntoALimit) {
  const std::string noise = "color=black:s=64x64,format=rgb24,noise=alls=100:all_seed=";
  Fill({{"f1.png", Drawn(noise + "1", "png")}, {"f2.png", Drawn(noise + "2", "png")}});
  const auto made = [&](const char* limit) {
    return Run({"limit.mp4", "--max-size", limit, "--overwrite"}).output;
  };
  EXPECT_THAT(made("1GB"), HasSubstr("64x64, quality 100, "));
  EXPECT_THAT(made("7kB"), HasSubstr("64x64, quality "));
  const auto bytes = fs::file_size(fs::path(output_.Path()) / "limit.mp4");
  EXPECT_TRUE(bytes <= 7000 && bytes > 6000) << bytes;
  EXPECT_THAT(made("1.5kB"), testing::Not(HasSubstr("64x64, ")));
  EXPECT_THAT(Run({"none.mp4", "--max-size", "0.5kB"}).errors, HasSubstr("not even a quarter"));
  // The two best quantizers of this one make 26 and 12 kB of these.
  const std::string faint = "rgbtestsrc=s=160x120,noise=alls=6:all_seed=";
  Fill({{"f1.png", Drawn(faint + "1", "png")},
        {"f2.png", Drawn(faint + "2", "png")},
        {"f3.png", Drawn(faint + "3", "png")}});
  EXPECT_THAT(Run({"steps.avi", "--max-size", "17.5kB"}).output, HasSubstr("160x120, quality "));
  const auto filled = fs::file_size(fs::path(output_.Path()) / "steps.avi");
  EXPECT_TRUE(filled <= 17'500 && filled > 14'000) << filled;
  // Nothing is filled up where the quality is what it would be anyway.
  Run({"usual.avi"});
  Run({"large.avi", "--max-size", "1GB", "--quality", "80"});
  EXPECT_EQ(fs::file_size(output_.Path() + "/large.avi"),
            fs::file_size(output_.Path() + "/usual.avi"));
}

TEST_F(AnimateTest, EveryFormatHasTheRateAndCount) {
  FillNumbered({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  for (const char* format : {"gif", "mp4", "avi", "wmv", "flv", "swf", "mov", "webm", "apng"}) {
    const std::string name = std::string("25.") + format;
    const ProgramResult result = Run({name, "--rate", "25"});
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    const auto [count, span] = CountAndSpan(name);
    EXPECT_EQ(count, 12U) << name;
    EXPECT_NEAR(span, 11.0 / 25, 0.002) << name;
  }
  // Hundredths of a second are shared out so that nothing is lost.
  EXPECT_EQ(Run({"16.gif"}).exitStatus, 0);
  EXPECT_NEAR(CountAndSpan("16.gif").second, 11.0 / 16, 0.006);
}

// A picture whose last bytes before its end are others.
std::string Damaged(std::string png) {
  png[png.size() - 24] = static_cast<char>(~png[png.size() - 24]);
  return png;
}

TEST_F(AnimateTest, RefusesSkipsOrHoldsBadFrames) {
  Frames frames;
  for (int number = 1; number <= 9; ++number) {
    const std::string png = Sample(number, "png");
    frames.emplace_back("f" + std::to_string(number) + ".png", number == 5 ? Damaged(png)
                                                               : number == 7 || number == 9
                                                                   ? png.substr(0, png.size() / 2)
                                                                   : png);
  }
  Fill(frames);
  EXPECT_THAT(Run({"bad.apng"}).errors,
              HasSubstr("3 frames are bad: \"f5.png\" is damaged and cannot be decoded ("));
  EXPECT_THAT(Run({"bad.apng"}).errors,
              HasSubstr("; \"f9.png\" is cut, its end is missing (it is the last one;"));
  EXPECT_THAT(output_.Names(), IsEmpty());
  EXPECT_THAT(Run({"skip.apng", "--bad", "skip"}).output, HasSubstr(", 3 bad frames skipped\n"));
  EXPECT_THAT(Levels("skip.apng"), ElementsAre(1, 2, 3, 4, 6, 8));
  const ProgramResult held = Run({"hold.apng", "--bad", "hold", "--json", "-q"});
  EXPECT_THAT(held.output, HasSubstr("\"shown\":9,\"bad\":[{\"name\":\"f5.png\",\"reason\":\"is "));
  EXPECT_THAT(Levels("hold.apng"), ElementsAre(1, 2, 3, 4, 4, 6, 6, 8, 8));
  // One whose colours are stored in halves, and whose data end early.
  const std::string jpeg = Drawn("testsrc=s=64x64,format=yuvj420p", "mjpeg");
  std::string torn = jpeg;
  torn.replace(torn.size() / 2, 200, 200, '\0');
  Fill({{"f1.jpg", jpeg}, {"f2.jpg", torn}, {"f3.jpg", jpeg}});
  EXPECT_THAT(Run({"torn.mp4"}).errors, HasSubstr("\"f2.jpg\" is damaged and cannot be decoded ("));
}

TEST_F(AnimateTest, TakesAListOrMakesEachSequence) {
  const std::string png = Sample(4, "png");
  Fill({{"a1.png", Sample(1, "png")},
        {"a2.png", Sample(2, "png")},
        {"b1.png", ""},
        {"b2.png", png},
        {"c.exr", ""}});
  const std::string name = fs::path(frames_.Path()).filename().string();
  const ProgramResult each = Run({output_.Path(), "--each", "--format", "apng", "--json", "-q"});
  EXPECT_EQ(each.exitStatus, 1);
  EXPECT_THAT(output_.Names(), ElementsAre(name + "_a.apng"));
  EXPECT_THAT(Levels(name + "_a.apng"), ElementsAre(1, 2));
  EXPECT_THAT(each.output, testing::MatchesRegex("..frames.:2,.*,.bytes.:.*\n..frames.:2,.*,"
                                                 ".error.:.*b1.png.* is empty.,.status.:1.\n"));
  EXPECT_THAT(Run({output_.Path(), "--each", "--overwrite"}).errors, HasSubstr("left out: 1 .exr"));
  const ProgramResult none = Run({output_.Path(), "--each", "--only", "9-"});
  EXPECT_EQ(none.exitStatus, 1);
  EXPECT_EQ(std::count(none.errors.begin(), none.errors.end(), '\n'), 3) << none.errors;

  EXPECT_THAT(RunAlone({frames_.Path() + "/a1.png", output_.Path(), "--each"}).errors,
              HasSubstr("--each takes a folder or a pattern; \"a1.png\" is one frame"));

  frames_.Write("list.txt", "b2.png\r\na1.png\nb2.png\n");
  const ProgramResult listed = RunAlone({"--from-list", frames_.Path() + "/list.txt", "list.gif"});
  EXPECT_EQ(listed.exitStatus, 0) << listed.errors;
  EXPECT_THAT(Levels("list.gif"), ElementsAre(4, 1, 4));
  EXPECT_THAT(RunAlone({"--version"}).output, testing::StartsWith("TessaraAnimate "));
  const ProgramResult wrong = RunAlone({"--json", "--bogus"});
  EXPECT_EQ(wrong.exitStatus, 2);
  EXPECT_THAT(wrong.output, testing::EndsWith("\",\"status\":2}\n"));
  EXPECT_THAT(wrong.errors, testing::StartsWith("TessaraAnimate: there is no option"));
}

TEST_F(AnimateTest, RefusesWithAReasonAndLosesNothing) {
  const std::string png = Sample(4, "png");
  const auto with = [](int number, const std::string& content) {
    Frames frames;
    for (int index = 1; index <= 9; ++index) {
      frames.emplace_back("f" + std::to_string(index) + ".png",
                          index == number ? content : Sample(index, "png"));
    }
    return frames;
  };
  const Frames good = with(0, "");
  const struct {
    Frames frames;
    Words arguments;
    const char* message;
  } kCases[] = {
      {with(5, png.substr(0, png.size() / 2)), {"out.mp4", "--overwrite"}, "\"f5.png\" is cut"},
      {with(8, Damaged(png)), {"out.mp4", "--overwrite"}, "\"f8.png\" is damaged"},
      {{{"a1.png", png}, {"a2.png", png}, {"b1.png", png}, {"b2.png", png}},
       {"out.mp4", "--overwrite"},
       "equally large"},
      {{{"a1.png", png}}, {"out.mp4", "--overwrite"}, "no sequence"},
      {good, {"out.mp4"}, "exists already"},
      {good, {"none/out.mp4"}, "cannot be found"},
      {good, {std::string(300, 'n') + ".mp4"}, ".mp4\" cannot be written"},
      {good, {"out.mp4", "--overwrite", "--converter", "none"}, "is no file"},
      {good, {"out.mp4", "--overwrite", "--converter", "out.mp4"}, "cannot be started"},
      {good,
       {"out.mp4", "--overwrite", "--contact-sheet", frames_.Path() + "/f9.png"},
       "f9.png\" is one of the frames"},
      {good, {"out.gif", "--without-converter"}, "only GIF frames"},
  };
  output_.Write("out.mp4", "old");
  for (const auto& c : kCases) {
    Fill(c.frames);
    const ProgramResult result = Run(c.arguments);
    EXPECT_EQ(result.exitStatus, 1) << c.message;
    EXPECT_THAT(result.errors, HasSubstr(c.message));
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(output_.Names(), ElementsAre("out.mp4"));
    EXPECT_EQ(output_.Read("out.mp4"), "old");
  }
  const TempFolder outer;
  outer.WriteAll({"a.exr", "run1/1.png", "run1/2.png", "run2/other.txt"});
  EXPECT_THAT(RunAlone({outer.Path()}).errors,
              testing::EndsWith("; but 1 .exr, the folder \"run1\" with 2\n"));
}

TEST_F(AnimateTest, MergesGifsWithoutTheConverter) {
  FillNumbered({1, 2, 3, 4, 5, 6, 7, 8, 9}, "gif");
  const ProgramResult result = Run({"out.gif", "--without-converter"});
  ASSERT_EQ(result.exitStatus, 0) << result.errors;
  EXPECT_THAT(Levels("out.gif"), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
  EXPECT_NEAR(CountAndSpan("out.gif").second, 8.0 / 16, 0.006);
  EXPECT_THAT(result.output, HasSubstr("out.gif: 9 frames, 0.6 s at 16"));
  const std::string two =
      Sample(3, "gif").substr(0, Sample(3, "gif").size() - 1) + Sample(4, "gif").substr(13 + 768);
  Fill({{"f1.gif", Sample(1, "gif")}, {"f2.gif", two}});
  EXPECT_THAT(Run({"two.gif", "--without-converter"}).errors,
              HasSubstr("\"f2.gif\" has several pictures"));
  Fill({{"f1.gif", Sample(1, "gif")}, {"f2.gif", GifOfPixels(2, 2, 2, "\1\1\1\1")}});
  EXPECT_THAT(Run({"sizes.gif", "--without-converter"}).errors, HasSubstr("have several sizes"));
  if (kIsWindows) {
    FillNumbered({1, 2, 3});
    EXPECT_EQ(Run({"out.avi", "--without-converter"}).exitStatus, 0);
    EXPECT_THAT(Levels("out.avi"), ElementsAre(1, 2, 3));
    EXPECT_NEAR(CountAndSpan("out.avi").second, 2.0 / 16, 0.0001);
  }
}

TEST_F(AnimateTest, DeletesOnlyTheFramesThatAreInTheAnimation) {
  frames_.WriteAll({"other.txt"});
  for (int number = 1; number < 4; ++number) {
    frames_.Write("f" + std::to_string(number) + ".png", Sample(number, "png"));
  }
  frames_.Write("g1.png", Sample(9, "png"));
  RunAlone({frames_.Path(), "none/out.mp4", "--delete-frames"});
  EXPECT_EQ(frames_.Names().size(), 5U);
  RunAlone({frames_.Path(), "out.mp4", "--delete-frames"});
  EXPECT_THAT(frames_.Names(), ElementsAre("g1.png", "other.txt"));
}

TEST_F(AnimateTest, RescuesCopiesWithoutReplacingAnything) {
  frames_.WriteAll({"_console_qmbImgTemp_07.png", "_console_qmbImgTemp_08.png", "rescued_08.png"});
  const ProgramResult result = RunAlone({"--rescue", frames_.Path()});
  EXPECT_EQ(result.exitStatus, 1);
  EXPECT_THAT(frames_.Names(),
              ElementsAre("_console_qmbImgTemp_08.png", "rescued_07.png", "rescued_08.png"));
  EXPECT_EQ(frames_.Read("rescued_07.png"), "_console_qmbImgTemp_07.png");
  EXPECT_EQ(frames_.Read("rescued_08.png"), "rescued_08.png");
}

}  // namespace
