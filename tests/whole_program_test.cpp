#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/program.h"
#include "tests/support/image_files.h"
#include "tests/support/program_fixture.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsSupersetOf;
using testing::StartsWith;
namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr char kSuccess[] = "\n\n Animation created successfully!!!\n\n";
constexpr char kFailure[] = "\n\nFailed to create AVI\n\n";
constexpr char kInvalid[] = "\n\nFailed to Create the animation file\n\n";
constexpr char kParams[] = "TessaraAnimationConsole::k3dAviCreator::RunExternalApp():Params:";

const std::string kSystem = kIsWindows ? "Microsoft Windows " : "Linux ";

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
    text.replace(at, what.size(), with);
    at += with.size();
  }
  return text;
}

// The lines that begin with `start`, without it.
Lines After(const std::string& start, const Lines& lines) {
  Lines found;
  for (const std::string& line : lines) {
    if (line.compare(0, start.size(), start) == 0) {
      found.push_back(line.substr(start.size()));
    }
  }
  return found;
}

class WholeProgramTest : public ProgramFixture {};

TEST_F(WholeProgramTest, HelpAndTheShortestCalls) {
  const struct {
    Lines arguments;
    std::string output;
  } kCases[] = {
      {{},
       "\nUsage: Executable InputFolder  OutputFile \n\nHelp for Creating GIF file\nExecutable /gif\n\nHelp for Creating AVI file\nExecutable /avi\n\n"},
      {{"D:/gifs/run1", "out.mp4"},
       "\nUsage:\nExecutable InputFolder OutputFile <-FR value> \nFR - Frame Rate\n\n"},
      {{"/gif"}, "\nUsage:\nExecutable InputFolder OutputFile <-FR value> \nFR - Frame Rate\n\n"},
      {{"/avi"},
       "\nUsage:\nExecutable InputFolder OutputFile <-FR value> <-S value> \nFR - Frame Rate\nS  - Size  value is percentage\n"},
      {{"*.png"}, kSuccess},
  };
  output_.Write("a.png");
  for (const auto& c : kCases) {
    const ProgramResult result = Run(c.arguments);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output, c.output);
    EXPECT_EQ(result.errors, "");
  }
  Lines log = Log();
  ASSERT_EQ(log.size(), 5U * 7U) << "nothing is logged beyond the frame of a run";
  log.erase(log.begin(), log.end() - 7);
  const std::string tag = "TessaraAnimationConsole";
  EXPECT_THAT(log,
              ElementsAre(tag + ": Version: " TESSARA_VERSION,
                          tag + (kIsWindows ? ": Win64 Application" : ": Linux64 Application"),
                          AllOf(StartsWith(tag + "::Args-> "), EndsWith(" *.png ")),
                          AllOf(StartsWith(tag + ": OS Version: " + kSystem), EndsWith("-bit")),
                          tag + "::CleanTrails:Start", tag + "::CleanTrails:End", tag + "::End"));
}

TEST_F(WholeProgramTest, LogSaysEveryStepInOrder) {
  UseRecordingConverter();
  frames_.WriteAll({"f_qmbImgTemp_1.tif", "f_qmbImgTemp_2.png"});
  Run({frames_.Path(), "out.flv", "-TESSARA_IMAGES", "1"});
  const std::string base = frames_ / "_console_qmbImgTemp_";
  const std::string ffmpeg = home_ / platform::ExecutableFileName("ffmpeg");
  const struct {
    std::string start;
    Lines steps;
  } kParts[] = {
      {"CreateMovie():", {"Start", "GdiplusStartup completed "}},
      {"Validate", {": Start", ":CurrentDirectory:" + output_.Path()}},
      {"Validate", {":Input Folder:" + frames_.Path(), ":Output File:out.flv", " End"}},
      {"CreateMovie():", {"Output is AVI "}},
      {"ParseCommandLineForAVI:", {"Start", "End"}},
      {"CreateMovie():", {"Create Movie from Images created by Tessara"}},
      {"k3dAviCreator::CreateAVI():", {"Start"}},
      {"k3dAviCreator::GetTheImages():", {"Start"}},
      {"k3dGetCAEData::GetFilesFromDirectory():",
       {"Start", "m_sDirectoryName: " + frames_.Path(), "f_qmbImgTemp_1.tif", "f_qmbImgTemp_2.png",
        "No of Image Files:2"}},
      {"k3dGetCAEData::GetCommonFileName():", {"Start", "Common Str:f_qmbImgTemp_", "End"}},
      {"k3dGetCAEData::GetFilesFromDirectory():", {"End"}},
      {"k3dGetCAEData::GetCAEData():", {"Start", "No of images in Movie:2", "End"}},
      {"k3dAviCreator::GetTheImages():", {"End"}},
      {"k3dAviCreator::RenameTheImageFiles():",
       {"Start", " " + base + "1.tiff", " " + base + "2.png", "End"}},
      {"k3dGetCAEData::DeleteImageFiles():", {"Start", " deleted 2 temp image files", "End"}},
      {"k3dAviCreator::GetTheInputFormatFor_ffmpeg():", {"Start", "End"}},
      {"k3dAviCreator::RunExternalApp():",
       {"ConverterPath:" + ffmpeg,
        R"(Params: -r 16 -i ")" + base +
            R"(%1d.tiff" -qscale 1 -filter:v "setpts=1.000000*PTS" "out.flv")",
        "done"}},
      {"k3dAviCreator::CreateAVI():", {"deleted 2 temp image files (created for ffmpeg)"}},
      {"CleanTrails:", {"Start", "End"}},
      {"k3dAviCreator::CreateAVI():", {"End"}},
      {"CreateMovie():", {"AVI is created", "GdiplusShutdown completed"}},
      {"CleanTrails:", {"Start", "End"}},
      {"End", {""}},
  };
  Lines expected;
  for (const auto& part : kParts) {
    for (const std::string& step : part.steps) {
      expected.push_back("TessaraAnimationConsole::" + part.start + step);
    }
  }
  const Lines log = Log();
  ASSERT_GT(log.size(), 4U);
  EXPECT_EQ(Lines(log.begin() + 4, log.end()), expected) << "after version, arguments and system";
}

// @I, @O and @P stand for the input pattern, the output file and the palette.
TEST_F(WholeProgramTest, ConverterGetsTheFormatsParametersToTheLetter) {
  UseRecordingConverter();
  const struct {
    std::string output;
    Lines options, parameters;
  } kCases[] = {
      {"anim.GIF",
       {"-SF", "2.5", "-FR", "7"},
       {R"( -v warning -i "@I" -vf "fps=7,scale=-1:-1:flags=lanczos,palettegen" -y "@P" )",
        R"( -v warning -i "@I" -i  "@P" -lavfi "setpts=2.500000*PTS,scale=-1:-1:flags=lanczos [x]; [x][1:v] paletteuse" -y "@O" )"}},
      {"movie.AVI",
       {},
       {R"( -framerate 16 -i "@I" -q:v 2  -c:v msmpeg4v3 -pix_fmt yuv420p "@O" )"}},
      {"clip.mp4",
       {"-IMG_DIM", "2147483647", "-481", "-FR", "25"},
       {R"( -framerate  25  -i  "@I"  -c:v libx264 -vf scale=2147483647:-480 -pix_fmt yuv420p  "@O" )"}},
      {"a.b.wmv", {"-SF", "3"}, {R"( -framerate 16 -i "@I" -qscale 1  -vcodec msmpeg4v3 "@O")"}},
      {"clip.swf",
       {"-FR", "-5"},
       {R"( -r -5 -i "@I" -qscale 1 -filter:v "setpts=1.000000*PTS" "@O")"}},
      {std::string(1024, 'n') + ".flv",
       {},
       {R"( -r 16 -i "@I" -qscale 1 -filter:v "setpts=1.000000*PTS" "@O)"}},
  };
  Lines expected;
  for (const auto& c : kCases) {
    Lines names;
    for (int k = 1; k <= 10; ++k) {
      names.push_back("f" + std::to_string(k) + (k == 2 ? ".jpg" : ".png"));
    }
    frames_.WriteAll(names);
    Lines arguments = {frames_.Path(), output_ / c.output};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    EXPECT_EQ(Run(arguments).output, kSuccess);
    EXPECT_TRUE(frames_.Names().empty());
    for (std::string line : c.parameters) {
      line = Replaced(line, "@I", frames_ / "_console_qmbImgTemp_%2d.png");
      line = Replaced(line, "@O", output_ / c.output);
      expected.push_back(Replaced(line, "@P", temp_ / "_bmq_palette_.png").substr(0, 1024));
    }
  }
  EXPECT_EQ(After(kParams, Log()), expected);
  EXPECT_THAT(Log(), Contains(EndsWith("CreateMovie():Make Movie from External Images")));
  const Lines record = Record();
  EXPECT_THAT(After("file:", record),
              IsSupersetOf({"_console_qmbImgTemp_02.jpg", "_console_qmbImgTemp_10.png"}));
  EXPECT_EQ(After("file:", record).size(), 7U * 10U) << "the converter finds the copies alone";
  const Lines lines = After("line:", record);
  if (!lines.empty()) {
    EXPECT_EQ(lines, expected);
  } else {
    // The second pass for the GIF, as a program with an argument vector gets it.
    const std::string input = frames_.Path() + "/_console_qmbImgTemp_%2d.png";
    const Lines words = After("argument:", record);
    ASSERT_GT(words.size(), 21U);
    EXPECT_EQ(
        Lines(words.begin() + 9, words.begin() + 20),
        Lines({"", "-v", "warning", "-i", input, "-i", temp_.Path() + "/_bmq_palette_.png",
               "-lavfi", "setpts=2.500000*PTS,scale=-1:-1:flags=lanczos [x]; [x][1:v] paletteuse",
               "-y", output_.Path() + "/anim.GIF"}));
  }
}

TEST_F(WholeProgramTest, BadInputIsReportedAndNothingIsDeleted) {
  UseRecordingConverter();
  output_.WriteAll({"a1.png", "a2.png", "file"});
  for (const char* folder : {"empty", "single", "unrelated", "mixed"}) {
    frames_.MakeFolder(folder);
  }
  frames_.WriteAll({"single/a1.png", "unrelated/cat.png", "unrelated/dog.png", "mixed/s1_1.png",
                    "mixed/s9.png"});
  const std::string in = "\nError : Couldn't find the input directory !!!\n";
  const std::string out = "\nError : Couldn't find the output directory !!!\n";
  const std::string format = "Error : The output format is not supported!!!\n";
  const struct {
    std::string input, outputName, output, box, line;
  } kCases[] = {
      {frames_ / "missing", "o.gif", in + kInvalid, "",
       "Validate:Couldn't find the Input directory"},
      {output_ / "file", "o.gif", in + kInvalid, "", "CreateMovie():Validation failed "},
      {std::string(5000, 'x'), "o.gif", in + kInvalid, "", "CreateMovie():Validation failed "},
      {output_.Path(), "o.avi.bak", format + kInvalid, "",
       "Validate:output format is not supported"},
      {output_.Path(), "m\\o.gif", out + kInvalid, "",
       "Validate:Couldn't find the output directory"},
      {frames_ / "empty", "o.gif", kFailure, "Input folder doesn't have image files!!!",
       "k3dGetCAEData::GetFilesFromDirectory():Input folder doesn't have image files"},
      {frames_ / "single", "o.gif", kFailure,
       "Input folder doesn't have sufficient image files to create movie!!!",
       "k3dGetCAEData::GetFilesFromDirectory():Input folder doesn't have suffient image files to create movie"},
      {frames_ / "unrelated", "o.gif", kFailure,
       "Input folder doesn't have sufficient information to sort the image files!!!",
       "k3dGetCAEData::GetFilesFromDirectory():GetCommonFileName failed"},
      {frames_ / "mixed", "o.gif", kFailure,
       "Input folder doesn't have suffient image files to create movie!!!",
       "k3dGetCAEData::GetCAEData():Input folder doesn't have suffient image files to create movie"},
  };
  for (const auto& c : kCases) {
    const ProgramResult result = Run({c.input, c.outputName});
    EXPECT_EQ(result.exitStatus, 0) << c.input;
    EXPECT_EQ(result.output, c.output) << c.input;
    EXPECT_EQ(result.errors, kIsWindows || c.box.empty() ? "" : "Tessara: " + c.box + "\n");
    EXPECT_THAT(Log(), Contains("TessaraAnimationConsole::" + c.line)) << c.input;
    EXPECT_EQ(Log().back(), "TessaraAnimationConsole::End");
  }
  EXPECT_THAT(Log(), Contains(EndsWith("::GetCAEData():No of images in Movie:1")));
  EXPECT_TRUE(Record().empty()) << "the converter is not run";
  EXPECT_EQ(output_.Names().size(), 3U);
  EXPECT_EQ(frames_.Read("single/a1.png") + frames_.Read("mixed/s9.png"),
            "single/a1.pngmixed/s9.png");
}

TEST_F(WholeProgramTest, ConverterFaults) {
  const std::string tag = "TessaraAnimationConsole::k3dAviCreator::";
  const auto run = [this](const Lines& names) {
    frames_.WriteAll(names);
    return Run({frames_.Path(), "out.mp4"}).output;
  };
  // Without a converter the copies are all that is left of the frames.
  EXPECT_EQ(run({"a1.png", "a2.png"}), kFailure);
  EXPECT_THAT(frames_.Names(),
              ElementsAre("_console_qmbImgTemp_1.png", "_console_qmbImgTemp_2.png"));
  EXPECT_THAT(Log(), Contains(tag + "GetExternalAppPath(): TESSARA_DIR is not set"));
  // A second run then takes the copies for frames, copies them onto themselves and deletes them.
  EXPECT_EQ(run({}), kFailure);
  EXPECT_THAT(frames_.Names(), ElementsAre());
  EXPECT_THAT(Log(), Contains(tag + "RenameTheImageFiles():CopyFile failed"));
  SetVariable("TESSARA_DIR", temp_.Path().c_str());
  EXPECT_EQ(run({"a1.png", "a2.png"}), kFailure);
  EXPECT_THAT(
      Log(),
      Contains(tag + "GetExternalAppPath(): Required component is missing in TESSARA_DIR!!!"));
  frames_.Clear();

  home_.MakeFolder(platform::ExecutableFileName("ffmpeg"));
  EXPECT_EQ(run({"a1.png", "a2.png"}), kSuccess) << "found, although it cannot be started";
  EXPECT_THAT(frames_.Names(), ElementsAre());
  const Lines errors = After(tag + "RunExternalApp():CreateProcess failed ", Log());
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_GT(std::atoi(errors[0].c_str()), 0);
}

// A read-only file is not deleted, and the copy of a read-only frame is read-only too.
TEST_F(WholeProgramTest, FailuresAfterTheStartAreNotNoticed) {
  UseRecordingConverter(3);
  frames_.WriteAll({".png", "a1.png", "a3.png", "a4.png", "other.txt"});
  frames_.MakeFolder("a2.png");
  temp_.WriteAll({"left_qmbImgTemp_1.png", "left_qmbImgTemp_2.png", "other_1.png"});
  const std::string readOnly[] = {frames_.Path() + "/a4.png",
                                  temp_.Path() + "/left_qmbImgTemp_2.png",
                                  frames_.Path() + "/_console_qmbImgTemp_4.png"};
  const auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(readOnly[0], write, fs::perm_options::remove);
  fs::permissions(readOnly[1], write, fs::perm_options::remove);
  EXPECT_EQ(Run({frames_ / ".", "out.avi"}).output, kSuccess);
  EXPECT_THAT(After("file:", Record()),
              ElementsAre(".png", "_console_qmbImgTemp_1.png", "_console_qmbImgTemp_3.png",
                          "_console_qmbImgTemp_4.png", "a2.png", "a4.png", "other.txt"));
  EXPECT_THAT(frames_.Names(),
              ElementsAre(".png", "_console_qmbImgTemp_4.png", "a2.png", "a4.png", "other.txt"));
  EXPECT_THAT(temp_.Names(),
              ElementsAre("TessaraMovieConsole_Log.txt", "left_qmbImgTemp_2.png", "other_1.png"));
  for (const std::string& path : readOnly) {
    fs::permissions(path, write, fs::perm_options::add);
    fs::remove(path);
  }
  EXPECT_THAT(Log(), Contains(EndsWith("deleted 3 temp image files (created for ffmpeg)")));
  // Frames that are folders leave no copy at all; only a backslash makes a folder that is checked.
  frames_.MakeFolder("a3.png");
  EXPECT_EQ(Run({frames_.Path(), "missing/out.Mp4"}).output, kSuccess);
  EXPECT_THAT(Log(), Contains(EndsWith("CreateAVI():no temp image files are created for ffmpeg")));
  // Without a folder the log is lost.
  SetVariable("TESSARA_TEMP_PATH", (temp_ / "missing\\root").c_str());
  frames_.Write("a4.png");
  EXPECT_EQ(Run({frames_.Path(), "\\out.gif"}).output, kSuccess);
  EXPECT_THAT(frames_.Names(), ElementsAre(".png", "a2.png", "a3.png", "other.txt"));
}

TEST_F(WholeProgramTest, AwkwardNames) {
  UseRecordingConverter();
  Lines starts = {"a b [c] (d) ", "50% %d ", "caf\xc3\xa9 ", "-fr ", "x=y&z;$HOME "};
  if (!kIsWindows) {
    starts.emplace_back("it's \"");
  }
  for (const std::string& start : starts) {
    frames_.WriteAll({start + "9.png", start + "10.png"});
    EXPECT_EQ(Run({frames_.Path(), start + "out.gif"}).output, kSuccess) << start;
    EXPECT_THAT(frames_.Names(), ElementsAre()) << start;
    EXPECT_THAT(
        After("TessaraAnimationConsole::k3dGetCAEData::GetCommonFileName():Common Str:", Log()),
        Contains(start));
  }
}

TEST_F(WholeProgramTest, RealConverterMakesEveryFormat) {
  UseRealConverter();
  const std::string converter =
      std::string(TESSARA_INSTALLATION) + "/TessaraPro64/" + platform::ExecutableFileName("ffmpeg");
  output_.Write("out put.gif", "replaced");
  for (const char* extension : {"gif", "mp4", "wmv", "flv", "avi", "swf"}) {
    // Alphabetical order would begin with 10 and 1000.
    const int kNumbers[] = {1, 2, 9, 10, 11, 1000};
    for (int k = 0; k < 6; ++k) {
      const std::string name = "frame" + std::to_string(kNumbers[k]) + ".bmp";
      const std::string pixel = std::string(3, static_cast<char>(40 + 32 * k)) + '\xFF';
      std::string pixels;
      while (pixels.size() < std::size_t{64} * 48 * 4) {
        pixels += pixel;
      }
      WriteBitmapFile(frames_.Path() + "/" + name, 64, pixels);
    }
    const std::string output = std::string("out put.") + extension;
    EXPECT_EQ(Run({frames_.Path(), output, "-IMG_DIM", "63", "48"}).output, kSuccess);
    EXPECT_TRUE(frames_.Names().empty()) << extension;
    EXPECT_THAT(temp_.Names(), ElementsAre("TessaraMovieConsole_Log.txt"));
    // One byte a frame.
    const Lines arguments = {"-v",       "error", "-i", output,     "-vf", "scale=1:1",
                             "-pix_fmt", "gray",  "-f", "rawvideo", "-"};
    const std::string greys = RunProgram(converter, arguments, output_.Path()).output;
    EXPECT_EQ(greys.size(), 6U) << extension;
    for (std::size_t k = 0; k < greys.size(); ++k) {
      EXPECT_NEAR(static_cast<unsigned char>(greys[k]), 40 + 32 * static_cast<int>(k), 8)
          << extension;
    }
  }
}

}  // namespace
