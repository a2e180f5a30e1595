#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/image_files.h"
#include "tests/support/program_fixture.h"

namespace {

using namespace testing;
namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr char kSuccess[] = "\n\n Animation created successfully!!!\n\n";
constexpr char kFailure[] = "\n\nFailed to create AVI\n\n";

const std::string kTag = "TessaraAnimationConsole";
const std::string kCreator = kTag + "::k3dAviCreator::";
const std::string kParams = kCreator + "RunExternalApp():Params:";

class WholeProgramTest : public ProgramFixture {
 protected:
  // What the program prints when it makes an animation of the frames, with blanks between options.
  std::string Make(const std::string& output, const std::string& options = "") {
    std::istringstream words(options);
    Lines arguments = {frames_.Path(), output};
    arguments.insert(arguments.end(), std::istream_iterator<std::string>(words), {});
    return Run(arguments).output;
  }
};

TEST_F(WholeProgramTest, LogSaysEveryStepInOrder) {
  UseRecordingConverter();
  frames_.WriteAll({"f_qmbImgTemp_1.tif", "f_qmbImgTemp_2.png"});
  Make("out.flv", "-TESSARA_IMAGES 1");
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
  const std::string system = kIsWindows ? "Microsoft Windows " : "Linux ";
  std::vector<Matcher<std::string>> expected = {
      kTag + ": Version: " TESSARA_VERSION,
      kTag + (kIsWindows ? ": Win64 Application" : ": Linux64 Application"),
      AllOf(StartsWith(kTag + "::Args-> "),
            EndsWith(frames_.Path() + " out.flv -TESSARA_IMAGES 1 ")),
      AllOf(StartsWith(kTag + ": OS Version: " + system), EndsWith("-bit"))};
  for (const auto& part : kParts) {
    for (const std::string& step : part.steps) {
      expected.emplace_back(std::string(kTag).append("::").append(part.start).append(step));
    }
  }
  EXPECT_THAT(Log(), ElementsAreArray(expected));
  // Where a program gets its command line as a whole, it is exactly what was logged.
  EXPECT_EQ(Record("line:"), kIsWindows ? Log(kParams) : Lines());
}

TEST_F(WholeProgramTest, CallsThatMakeNothingSayWhyAndDeleteNothing) {
  UseRecordingConverter();
  output_.WriteAll({"a1.png", "a2.png", "file"});
  frames_.WriteAll({"empty/other.txt", "single/a1.png", "unrelated/cat.png", "unrelated/dog.png",
                    "mixed/s1_1.png", "mixed/s9.png"});
  const std::string failed = "\n\nFailed to Create the animation file\n\n";
  const std::string scan = "k3dGetCAEData::GetFilesFromDirectory():";
  const struct {
    std::string first, second, output, line, box;
  } kCases[] = {
      {"", "",
       "\nUsage: Executable InputFolder  OutputFile \n\nHelp for Creating GIF file\nExecutable /gif\n\nHelp for Creating AVI file\nExecutable /avi\n\n",
       "End", ""},
      {"D:/gifs/run1", "out.mp4",
       "\nUsage:\nExecutable InputFolder OutputFile <-FR value> \nFR - Frame Rate\n\n", "End", ""},
      {"/avi", "",
       "\nUsage:\nExecutable InputFolder OutputFile <-FR value> <-S value> \nFR - Frame Rate\nS  - Size  value is percentage\n",
       "End", ""},
      {"*1.png", "", kSuccess, "End", ""},
      {output_ / "file", "o.gif", "\nError : Couldn't find the input directory !!!\n" + failed,
       "Validate:Couldn't find the Input directory", ""},
      {std::string(5000, 'x'), "o.gif",
       "\nError : Couldn't find the input directory !!!\n" + failed,
       "CreateMovie():Validation failed ", ""},
      {output_.Path(), "o.avi.bak", "Error : The output format is not supported!!!\n" + failed,
       "Validate:output format is not supported", ""},
      {output_.Path(), "m\\o.gif", "\nError : Couldn't find the output directory !!!\n" + failed,
       "Validate:Couldn't find the output directory", ""},
      {frames_ / "empty", "o.gif", kFailure, scan + "Input folder doesn't have image files",
       "Input folder doesn't have image files!!!"},
      {frames_ / "single", "o.gif", kFailure,
       scan + "Input folder doesn't have suffient image files to create movie",
       "Input folder doesn't have sufficient image files to create movie!!!"},
      {frames_ / "unrelated", "o.gif", kFailure, scan + "GetCommonFileName failed",
       "Input folder doesn't have sufficient information to sort the image files!!!"},
      {frames_ / "mixed", "o.gif", kFailure,
       "k3dGetCAEData::GetCAEData():Input folder doesn't have suffient image files to create movie",
       "Input folder doesn't have suffient image files to create movie!!!"},
  };
  for (const auto& c : kCases) {
    Lines arguments = {c.first, c.second};
    std::erase(arguments, "");
    const ProgramResult result = Run(arguments);
    EXPECT_EQ(result.output, c.output);
    EXPECT_EQ(result.errors, kIsWindows || c.box.empty() ? "" : "Tessara: " + c.box + "\n");
    EXPECT_THAT(Log(kTag + "::"), AllOf(Contains(c.line), Contains("End").Times(&c - kCases + 1)));
  }
  EXPECT_THAT(Log(kTag + "::Args-> "), Contains(EndsWith(" *1.png ")));
  EXPECT_THAT(Record(""), IsEmpty()) << "the converter is not run";
  EXPECT_THAT(output_.Names(), SizeIs(3));
  EXPECT_EQ(frames_.Read("single/a1.png") + frames_.Read("mixed/s9.png"),
            "single/a1.pngmixed/s9.png");
}

TEST_F(WholeProgramTest, ConverterFaults) {
  const std::string path = kCreator + "GetExternalAppPath(): ";
  const Lines frames = {"a1.png", "a2.png"};
  // Without a converter the copies are all that is left of the frames.
  frames_.WriteAll(frames);
  EXPECT_EQ(Make("\\out.mp4"), kFailure);
  EXPECT_THAT(frames_.Names(),
              ElementsAre("_console_qmbImgTemp_1.png", "_console_qmbImgTemp_2.png"));
  EXPECT_THAT(Log(), Contains(path + "TESSARA_DIR is not set"));
  // A second run then takes the copies for frames, copies them onto themselves and deletes them.
  EXPECT_EQ(Make("out.mp4"), kFailure);
  EXPECT_THAT(frames_.Names(), IsEmpty());
  EXPECT_THAT(Log(kCreator + "RenameTheImageFiles():"), Contains("CopyFile failed").Times(2));
  SetVariable("TESSARA_DIR", temp_.Path().c_str());
  frames_.WriteAll(frames);
  EXPECT_EQ(Make("out.mp4"), kFailure);
  EXPECT_THAT(Log(), Contains(path + "Required component is missing in TESSARA_DIR!!!"));

  home_.Write(platform::ExecutableFileName("ffmpeg") + "/inside");
  EXPECT_EQ(Make("out.mp4"), kSuccess) << "found, although it cannot be started";
  EXPECT_THAT(frames_.Names(), IsEmpty());
  const Lines errors = Log(kCreator + "RunExternalApp():CreateProcess failed ");
  ASSERT_THAT(errors, SizeIs(1));
  EXPECT_GT(std::atoi(errors[0].c_str()), 0);
}

// A read-only file is not deleted, and the copy of a read-only frame is read-only too.
TEST_F(WholeProgramTest, FailuresAfterTheStartAreNotNoticed) {
  UseRecordingConverter();
  temp_.Write("left_qmbImgTemp_1.png");
  frames_.WriteAll({".png", "a1.png", "a3.png", "a4.png", "a2.png/inside"});
  const auto writable = [&](const char* name, fs::perm_options change) {
    constexpr auto kWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(frames_.File(name), kWrite, change);
  };
  writable("a4.png", fs::perm_options::remove);
  EXPECT_EQ(Run({frames_ / ".", "out.avi"}).output, kSuccess);
  EXPECT_THAT(Record("file:"),
              UnorderedElementsAre(".png", "_console_qmbImgTemp_1.png", "_console_qmbImgTemp_3.png",
                                   "_console_qmbImgTemp_4.png", "a2.png", "a4.png"));
  EXPECT_THAT(frames_.Names(),
              ElementsAre(".png", "_console_qmbImgTemp_4.png", "a2.png", "a4.png"));
  EXPECT_THAT(temp_.Names(), ElementsAre("TessaraMovieConsole_Log.txt")) << "swept";
  writable("a4.png", fs::perm_options::add);
  writable("_console_qmbImgTemp_4.png", fs::perm_options::add);
  // Frames that are folders leave no copy at all; only a backslash makes a folder that is checked.
  frames_.Clear();
  frames_.WriteAll({"a2.png/inside", "a3.png/inside"});
  EXPECT_EQ(Make("missing/out.Mp4", "-IMG_DIM 2147483647 -481"), kSuccess);
  EXPECT_THAT(Log(kParams).back(), HasSubstr(" -vf scale=2147483647:-480 "));
  EXPECT_THAT(Log(kCreator + "CreateAVI():"),
              ElementsAre("Start", "deleted 3 temp image files (created for ffmpeg)", "End",
                          "Start", "no temp image files are created for ffmpeg", "End"));
  EXPECT_EQ(Make(std::string(1024, 'n') + ".flv", "-FR -5"), kSuccess);
  EXPECT_THAT(Log(kParams).back(), AllOf(StartsWith(" -r -5 "), EndsWith("nn"), SizeIs(1024)));
}

// @I, @O and @P stand for the input pattern, the output file and the palette.
TEST_F(WholeProgramTest, RealConverterMakesEveryFormatWithItsParameters) {
  SetVariable("TESSARA_DIR", TESSARA_INSTALLATION);
  const std::string converter =
      std::string(TESSARA_INSTALLATION) + "/TessaraPro64/" + platform::ExecutableFileName("ffmpeg");
  const struct {
    std::string start, type, options, parameters, secondParameters;
  } kCases[] = {
      {"a b [c] (d) ", ".GIF", "-SF 2.5 -FR 25",
       R"( -v warning -i "@I" -vf "fps=25,scale=-1:-1:flags=lanczos,palettegen" -y "@P" )",
       R"( -v warning -i "@I" -i  "@P" -lavfi "setpts=2.500000*PTS,scale=-1:-1:flags=lanczos [x]; [x][1:v] paletteuse" -y "@O" )"},
      {"50% %d ", ".AVI", "",
       R"( -framerate 16 -i "@I" -q:v 2  -c:v msmpeg4v3 -pix_fmt yuv420p "@O" )", ""},
      {"caf\xc3\xa9 ", ".mp4", "-IMG_DIM 63 48 -FR 25",
       R"( -framerate  25  -i  "@I"  -c:v libx264 -vf scale=64:48 -pix_fmt yuv420p  "@O" )", ""},
      {"-fr ", ".b.wmv", "-SF 3", R"( -framerate 16 -i "@I" -qscale 1  -vcodec msmpeg4v3 "@O")",
       ""},
      {"x=y&z;$HOME ", ".swf", "",
       R"( -r 16 -i "@I" -qscale 1 -filter:v "setpts=1.000000*PTS" "@O")", ""},
      {"it's ", ".flv", "", R"( -r 16 -i "@I" -qscale 1 -filter:v "setpts=1.000000*PTS" "@O")", ""},
  };
  Lines expected;
  for (const auto& c : kCases) {
    // Alphabetical order would begin with 10 and 1000.
    const int numbers[] = {1, 2, 3, 4, 5, 9, 10, 11, 100, 1000};
    for (const int& number : numbers) {
      const auto grey = static_cast<char>(130 + 12 * (&number - numbers));
      frames_.Write(c.start + std::to_string(number) + ".bmp",
                    BitmapFile(64, std::string(std::size_t{64} * 48 * 4, grey)));
    }
    const std::string output = output_ / (c.start + c.type);
    EXPECT_EQ(Make(output, c.options), kSuccess);
    EXPECT_THAT(frames_.Names(), IsEmpty()) << c.type;
    EXPECT_THAT(temp_.Names(), ElementsAre("TessaraMovieConsole_Log.txt"));
    for (std::string line : {c.parameters, c.secondParameters}) {
      line = std::regex_replace(line, std::regex("@I"), frames_ / "_console_qmbImgTemp_%2d.bmp");
      line = std::regex_replace(line, std::regex("@P"), temp_ / "_bmq_palette_.png");
      expected.push_back(std::regex_replace(line, std::regex("@O"), output));
    }
    std::erase(expected, "");
    // One byte a frame.
    const Lines arguments = {"-v", "error",    "-i",        c.start + c.type, "-vsync",
                             "0",  "-vf",      "scale=1:1", "-pix_fmt",       "gray",
                             "-f", "rawvideo", "-"};
    const std::string greys = RunProgram(converter, arguments, output_.Path()).output;
    EXPECT_THAT(greys, SizeIs(10)) << c.type;
    for (int k = 0; const char grey : greys) {
      EXPECT_NEAR(static_cast<unsigned char>(grey), 130 + 12 * k++, 5) << c.type;
    }
  }
  EXPECT_EQ(Log(kParams), expected);
  EXPECT_THAT(Log(), Contains(kTag + "::CreateMovie():Make Movie from External Images"));
}

}  // namespace
