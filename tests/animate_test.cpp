// TessaraAnimate as a whole, with the real converter.
#include <gmock/gmock.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "animate/failure.h"
#include "animate/sequence.h"
#include "tests/support/gif_builder.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"
#include "tests/support/variables.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Words = std::vector<std::string>;

const std::string kConverter =
    std::string(TESSARA_INSTALLATION "/TessaraPro64/") + platform::ExecutableFileName("ffmpeg");

// Small pictures of every type; all of picture N is of the grey level 2 N.
constexpr int kSamples = 121;

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
    for (const char* extension : {"png", "jpg", "bmp", "tiff"}) {
      const std::string codec = extension == std::string("jpg") ? "mjpeg" : extension;
      words.insert(words.end(), {"-frames:v", std::to_string(kSamples), "-start_number", "0",
                                 "-c:v", codec, "-q:v", "1", "-f", "image2"});
      if (codec != "mjpeg") {
        words.insert(words.end(), {"-pix_fmt", codec == "bmp" ? "bgr24" : "gray"});
      }
      words.push_back(std::string("%d.") + extension);
    }
    EXPECT_EQ(Convert(words, folder).errors, "");
  }
  return folder;
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
  const fs::path path =
      fs::path(Samples().Path()) / (std::to_string(number % kSamples) + "." + extension);
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The frames of a folder by their names, which may be in any language.
using Frames = std::vector<std::pair<fs::path, std::string>>;

class AnimateTest : public testing::Test {
 protected:
  AnimateTest() { variables_.Set("TESSARA_DIR", TESSARA_INSTALLATION); }
  ~AnimateTest() override { EXPECT_THAT(temp_.Names(), IsEmpty()) << "left behind"; }

  void Fill(const Frames& frames) {
    for (const fs::directory_entry& entry : fs::directory_iterator(frames_.Path())) {
      fs::remove(entry);
    }
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
      std::ifstream file(fs::path(frames_.Path()) / name, std::ios::binary);
      const std::string now{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
      EXPECT_TRUE(now == content) << name << " was changed";
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
    std::ifstream file(raw.Path() + "/raw", std::ios::binary);
    std::vector<int> levels;
    for (int level = file.get(); level != EOF; level = file.get()) {
      levels.push_back((level + 1) / 2);
    }
    return levels;
  }

  // What a converter of its own finds in an animation: the frames, and when the last one begins.
  std::pair<std::size_t, double> CountAndLastTime(const std::string& name) {
    std::istringstream lines(
        Convert({"-i", output_.Path() + "/" + name, "-vsync", "0", "-f", "framecrc", "-"}, output_)
            .output);
    std::size_t count = 0;
    double tick = 0;
    long long time = 0;
    for (std::string line; std::getline(lines, line);) {
      int over = 0;
      int under = 1;
      if (std::sscanf(line.c_str(), "#tb 0: %d/%d", &over, &under) == 2) {
        tick = static_cast<double>(over) / under;
      } else if (std::sscanf(line.c_str(), "0, %*d, %lld", &time) == 1) {
        ++count;
      }
    }
    return {count, static_cast<double>(time) * tick};
  }

  TempFolder frames_;
  TempFolder output_;

 private:
  Variables variables_;
  TempFolder temp_;
  Frames filled_;
};

// --- Which images are a sequence, and in which order ---------------------------------------------

TEST(AnimateSequence, OrdersByNumbersAndFindsWhatIsMissing) {
  const std::string longOne = "12345678901234567890123456789";
  const struct {
    Words names;
    Words order;
    std::vector<std::size_t> gaps;
    std::size_t doubles;
    std::size_t leftOut;
  } kCases[] = {
      {{"10.png", "9.png", "8.png"}, {"8.png", "9.png", "10.png"}, {}, 0, 0},
      {{"f0.png", "f30.png", "f10.png", "f20.png"},
       {"f0.png", "f10.png", "f20.png", "f30.png"},
       {},
       0,
       0},
      {{"f1.png", "f2.png", "f3.png", "f7.png"},
       {"f1.png", "f2.png", "f3.png", "f7.png"},
       {3},
       0,
       0},
      {{"s1_9.png", "s1_10.png", "s2_1.png", "s2_2.png", "s2_4.png", "s2_5.png"},
       {"s1_9.png", "s1_10.png", "s2_1.png", "s2_2.png", "s2_4.png", "s2_5.png"},
       {1},
       0,
       0},
      {{"A2.JPG", "a1.jpeg", "a3.jpg", "a.jpg", "b1.jpg"},
       {"a1.jpeg", "A2.JPG", "a3.jpg"},
       {},
       0,
       2},
      {{"a1.png", "a01.png", "a2.png"}, {"a01.png", "a1.png", "a2.png"}, {}, 1, 0},
      {{longOne + "1.tif", longOne + "0.tiff", "9" + longOne + "0.tif"},
       {longOne + "0.tiff", longOne + "1.tif", "9" + longOne + "0.tif"},
       {},
       0,
       0},
      {{"x0.25.png", "x0.50.png", "x1.00.png", "x.txt"},
       {"x0.25.png", "x0.50.png", "x1.00.png"},
       {},
       0,
       0},
      {{"10-59-58.png", "10-59-59.png", "11-00-00.png"},
       {"10-59-58.png", "10-59-59.png", "11-00-00.png"},
       {},
       0,
       0},
  };
  for (const auto& c : kCases) {
    const animate::Findings found =
        animate::FindSequence({c.names.begin(), c.names.end()}, std::nullopt);
    Words order;
    for (const animate::NumberedName& frame : found.sequence) {
      order.push_back(frame.name.string());
    }
    EXPECT_EQ(order, c.order);
    std::vector<std::size_t> gaps;
    for (const animate::Gap& gap : found.gaps) {
      gaps.push_back(gap.count);
    }
    EXPECT_EQ(gaps, c.gaps) << c.names[0];
    EXPECT_EQ(found.doubles.size(), c.doubles) << c.names[0];
    EXPECT_EQ(found.leftOut.size(), c.leftOut) << c.names[0];
  }
}

TEST(AnimateSequence, MeansTheFrameThatIsNamed) {
  const std::vector<fs::path> names = {"a1.png", "a2.png", "b1.png", "b2.png", "logo.png"};
  EXPECT_EQ(animate::FindSequence(names, "b2.png").sequence.front().name, "b1.png");
  EXPECT_THROW(animate::FindSequence(names, std::nullopt), animate::Failure);
  EXPECT_THROW(animate::FindSequence(names, "logo.png"), animate::Failure);
  EXPECT_THROW(animate::FindSequence({"a1.png"}, std::nullopt), animate::Failure);
  EXPECT_THROW(animate::FindSequence({}, std::nullopt), animate::Failure);
}

// --- Folders -----------------------------------------------------------------------------------

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
  Frames extra = numbered("x%d.png", 1, 9, "png");
  extra.insert(extra.end(), {{"run.gif", Sample(50, "gif")}, {"logo.png", Sample(60, "png")}});
  Frames two = numbered("small%d.png", 1, 5, "png");
  for (auto& frame : numbered("large%d.png", 11, 19, "png")) {
    two.push_back(frame);
  }
  Frames times;
  for (int second = 55; second < 66; ++second) {
    const std::string minute = second < 60 ? "10-59-" : "11-00-0";
    times.emplace_back("at " + minute + std::to_string(second % 60) + ".png",
                       Sample(second, "png"));
  }
  const struct {
    Frames frames;
    int first;
    // How many of the images are left out.
    std::size_t others = 0;
  } kCases[] = {
      {numbered("frame_%d.png", 1, 120, "png"), 1},
      {numbered("%d.bmp", 1, 120, "bmp"), 1},
      {numbered("%04d.png", 1, 1201, "png"), 1},
      {numbered("Screenshot (%d).png", 5, 12, "png"), 5},
      {numbered("%03d_temp.tif", 1, 12, "tiff"), 1},
      {numbered("DSC%05d.JPG", 95, 104, "jpg"), 95},
      {numbered("100%% of %d's.png", 8, 12, "png"), 8},
      {numbered("\xE6\x97\xA5\xE6\x9C\xAC%d.png", 8, 12, "png"), 8},
      {numbered("\xD0\xBA\xD0\xB0\xD0\xB4\xD1\x80%d.png", 8, 12, "png"), 8},
      {numbered("e\xCC\x81tude%d.png", 8, 12, "png"), 8},
      {numbered("t0.%02d.png", 8, 12, "png"), 8},
      {numbered("%d.gif", 8, 12, "gif"), 8},
      {extra, 1, 2},
      {two, 11, 5},
      {times, 55},
  };
  for (const auto& c : kCases) {
    Fill(c.frames);
    const ProgramResult result = Run({"out.apng", "--overwrite"});
    ASSERT_EQ(result.exitStatus, 0) << c.frames[0].first << result.errors;
    const std::vector<int> levels = Levels("out.apng");
    for (std::size_t index = 0; index < levels.size(); ++index) {
      ASSERT_EQ(levels[index], (c.first + static_cast<int>(index)) % kSamples) << c.frames[0].first;
    }
    EXPECT_THAT(result.output, HasSubstr("out.apng: " + std::to_string(levels.size()) + " frames"));
    EXPECT_EQ(levels.size(), c.frames.size() - c.others) << c.frames[0].first;
    EXPECT_THAT(output_.Names(), ElementsAre("out.apng"));
  }
}

TEST_F(AnimateTest, HoldsFramesBringsThemToOneSizeAndShowsThemOnASheet) {
  FillNumbered({1, 2, 3, 6, 7});
  EXPECT_EQ(Run({"out.gif", "--fill-gaps", "--contact-sheet", "sheet.png"}).exitStatus, 0);
  EXPECT_THAT(Levels("out.gif"), ElementsAre(1, 2, 3, 3, 3, 6, 7));
  EXPECT_EQ(Levels("sheet.png").size(), 1U);
  // A wide frame keeps its shape: its middle is grey, and above it is black.
  TempFolder wide;
  Convert(
      {"-i", Samples().Path() + "/100.png", "-vf", "scale=64:16", "-pix_fmt", "rgba", "wide.png"},
      wide);
  std::ifstream file(wide.Path() + "/wide.png", std::ios::binary);
  Fill({{"f1.png", Sample(1, "png")},
        {"f2.png", {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}},
        {"f3.png", Sample(3, "png")}});
  for (const char* output : {"sizes.apng", "sizes.gif"}) {
    const ProgramResult result = Run({output});
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_THAT(result.errors, HasSubstr("all are brought to 16x16"));
    EXPECT_THAT(Levels(output), ElementsAre(1, 100, 3));
  }
}

// --- Formats -----------------------------------------------------------------------------------

TEST_F(AnimateTest, EveryFormatHasTheRateAndCount) {
  FillNumbered({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  for (const char* format : {"gif", "mp4", "avi", "wmv", "flv", "swf", "mov", "webm", "apng"}) {
    for (const int rate : {10, 25}) {
      const std::string name = std::to_string(rate) + "." + format;
      const ProgramResult result = Run({name, "--rate", std::to_string(rate)});
      ASSERT_EQ(result.exitStatus, 0) << result.errors;
      const auto [count, lastTime] = CountAndLastTime(name);
      EXPECT_EQ(count, 12U) << name;
      EXPECT_NEAR(lastTime, 11.0 / rate, 0.002) << name;
    }
  }
  // Hundredths of a second are shared out so that nothing is lost.
  EXPECT_EQ(Run({"16.gif"}).exitStatus, 0);
  EXPECT_NEAR(CountAndLastTime("16.gif").second, 11.0 / 16, 0.006);
}

TEST_F(AnimateTest, PicturesAreThoseOfTheConsoleProgram) {
  for (const char* name : {"out.mp4", "out.avi", "out.wmv"}) {
    FillNumbered({10, 20, 30, 40}, "jpg");
    ASSERT_EQ(Run({name, "--size", "640x480"}).exitStatus, 0);
    if (name != std::string("out.mp4")) {
      ASSERT_EQ(Run({name, "--overwrite"}).exitStatus, 0);
    }
    RunProgram(TESSARA_PROGRAM,
               {frames_.Path(), output_.Path() + (kIsWindows ? "\\" : "/") + "console_" + name},
               output_.Path());
    const auto sums = [&](const std::string& movie) {
      return Convert({"-i", movie, "-f", "framemd5", "-"}, output_).output;
    };
    EXPECT_THAT(sums(name), HasSubstr("\n0, "));
    EXPECT_EQ(sums(name), sums(std::string("console_") + name));
  }
}

// --- Refusals ----------------------------------------------------------------------------------

TEST_F(AnimateTest, WrongUseIsOneLine) {
  const struct {
    Words arguments;
    const char* message;
  } kCases[] = {
      {{"--bogus"}, "--bogus"},
      {{"b.mp4", "c.mp4"}, "give the folder or one frame"},
      {{"out.mp4", "--rate", "0"}, "--rate"},
      {{"out.mp4", "--rate", "1001"}, "--rate"},
      {{"out.mp4", "--rate", "1e1"}, "--rate"},
      {{"out.gif", "--rate", "51"}, "faster than 50"},
      {{"out.mp4", "--rate"}, "--rate"},
      {{"out.mp4", "--size", "640"}, "--size"},
      {{"out.txt"}, "does not end like"},
      {{"out.mp4", "--contact-sheet", "sheet.jpg"}, ".png"},
  };
  for (const auto& c : kCases) {
    const ProgramResult result = Run(c.arguments);
    EXPECT_EQ(result.exitStatus, 2) << c.message;
    EXPECT_THAT(result.errors, HasSubstr(c.message));
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << c.message;
  }
}

TEST_F(AnimateTest, RefusesWithAReasonAndLosesNothing) {
  const std::string png = Sample(4, "png");
  std::string flipped = png;
  flipped[flipped.size() - 24] = static_cast<char>(~flipped[flipped.size() - 24]);
  const auto with = [](int number, const std::string& content, const std::string& type = "png") {
    Frames frames;
    for (int index = 1; index <= 9; ++index) {
      frames.emplace_back("f" + std::to_string(index) + "." + type,
                          index == number ? content : Sample(index, type));
    }
    return frames;
  };
  const auto cut = [](const std::string& content) { return content.substr(0, content.size() / 2); };
  const Frames good = with(0, "");
  const struct {
    Frames frames;
    Words arguments;
    const char* message;
  } kCases[] = {
      {with(1, ""), {"out.mp4", "--overwrite"}, "\"f1.png\" is empty"},
      {with(5, cut(png)), {"out.mp4", "--overwrite"}, "\"f5.png\" is cut"},
      {with(9, cut(Sample(4, "jpg")), "jpg"), {"out.mp4", "--overwrite"}, "\"f9.jpg\" is cut"},
      {with(9, cut(Sample(4, "gif")), "gif"), {"out.mp4", "--overwrite"}, "\"f9.gif\" is cut"},
      {with(9, cut(Sample(4, "bmp")), "bmp"), {"out.mp4", "--overwrite"}, "\"f9.bmp\" is cut"},
      {with(9, cut(Sample(4, "tiff")), "tiff"), {"out.mp4", "--overwrite"}, "\"f9.tiff\" is cut"},
      {with(3, Sample(4, "jpg")), {"out.mp4", "--overwrite"}, "\"f3.png\" is a JPEG picture"},
      {with(3, "text"), {"out.mp4", "--overwrite"}, "\"f3.png\" is no picture"},
      {with(8, flipped), {"out.mp4", "--overwrite"}, "\"f8.png\" is damaged"},
      {{{"a1.png", png}, {"a2.png", png}, {"b1.png", png}, {"b2.png", png}},
       {"out.mp4", "--overwrite"},
       "equally large"},
      {{{"a1.png", png}}, {"out.mp4", "--overwrite"}, "no sequence"},
      {good, {"out.mp4"}, "exists already"},
      {good, {"none/out.mp4"}, "cannot be found"},
      {good, {"out.mp4", "--overwrite", "--converter", "none"}, "is no file"},
      {good, {"out.mp4", "--overwrite", "--converter", "out.mp4"}, "cannot be started"},
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
}

// --- The rest ----------------------------------------------------------------------------------

TEST_F(AnimateTest, MergesGifsWithoutTheConverter) {
  FillNumbered({1, 2, 3, 4, 5, 6, 7, 8, 9}, "gif");
  const ProgramResult result = Run({"out.gif", "--without-converter"});
  ASSERT_EQ(result.exitStatus, 0) << result.errors;
  EXPECT_THAT(Levels("out.gif"), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
  EXPECT_NEAR(CountAndLastTime("out.gif").second, 8.0 / 16, 0.006);
  if (kIsWindows) {
    FillNumbered({1, 2, 3});
    EXPECT_EQ(Run({"out.avi", "--without-converter"}).exitStatus, 0);
    EXPECT_THAT(Levels("out.avi"), ElementsAre(1, 2, 3));
    EXPECT_NEAR(CountAndLastTime("out.avi").second, 2.0 / 16, 0.0001);
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
