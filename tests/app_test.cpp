#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <vector>

#include "app/command_line.h"
#include "app/run_sequence.h"
#include "frames/own_images.h"
#include "frames/working_images.h"
#include "gif/gif_anim_creator.h"
#include "movie/avi_creator.h"
#include "tests/support/log_fixture.h"

namespace {

using namespace testing;

class AppTest : public LogFixture {};

// Reads a command line with these options behind the paths.
bool ReadOptions(bool (&read)(int, char**), const std::vector<std::string>& options) {
  std::vector<std::string> arguments = {"program", "-FR", "-SF"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  std::vector<char*> vector;
  vector.reserve(arguments.size());
  for (std::string& argument : arguments) {
    vector.push_back(argument.data());
  }
  g_ownImages = false;
  return read(static_cast<int>(vector.size()), vector.data());
}

TEST_F(AppTest, OptionsAreReadAsTheyStand) {
  const struct {
    std::vector<std::string> options;
    int rate;
    float factor;
    int width, height;
    bool ownImages;
  } kCases[] = {
      {{}, 16, 1, 640, 480, false},
      {{"-FR", "25", "-SF", "0.5", "-IMG_DIM", "800", "600"}, 25, 0.5, 800, 600, false},
      {{"-fr", "10", "-FR", "30", "-sf", "2", "-img-dim", "1", "2"}, 30, 2, 1, 2, false},
      {{"-S", "50", "-Fr", "9", "x-fr", "7", "-FRAMERATE"}, 7, 1, 640, 480, false},
      {{"-FR-SF", "3"}, 3, 3, 640, 480, false},
      {{"-FR", "-SF", "4"}, 0, 4, 640, 480, false},
      {{"-TESSARA_IMAGES", "1", "-IMG_DIM"}, 16, 1, 640, 480, true},
      {{"-TESSARA_IMAGES", "1", "-TESSARA_IMAGES", "no"}, 16, 1, 640, 480, false},
      {{"-FR", "20", "-IMG_DIM", "100"}, 20, 1, 100, 480, false},
  };
  for (const auto& c : kCases) {
    g_aviCreator = k3dAviCreator();
    EXPECT_TRUE(ReadOptions(ParseCommandLineForAVI, c.options));
    const k3dAviCreator& read = g_aviCreator;
    EXPECT_EQ(read.m_sInputFolder + read.m_sOutputFile, "-FR-SF") << "always the paths";
    EXPECT_EQ(
        std::tie(read.m_nFrameRate, read.m_fSizeFactor, read.m_nWidth, read.m_nHeight, g_ownImages),
        std::tie(c.rate, c.factor, c.width, c.height, c.ownImages))
        << PrintToString(c.options);
  }
}

TEST_F(AppTest, TheGifsRateIsThirtyAtMost) {
  const struct {
    std::vector<std::string> options;
    int rate;
    bool ownImages;
  } kCases[] = {
      {{"-FR", "30"}, 30, false},
      {{"-fr", "31", "-TESSARA_IMAGES", "1"}, 16, true},
      {{"-FR", "-5", "-SF", "7"}, -5, false},
  };
  for (const auto& c : kCases) {
    EXPECT_TRUE(ReadOptions(ParseCommandLineForGIF, c.options));
    EXPECT_EQ(g_gifAnimCreator.m_sInputFolder + g_gifAnimCreator.m_sOutputFile, "-FR-SF");
    EXPECT_EQ(std::tie(g_gifAnimCreator.m_nFrameRate, g_ownImages), std::tie(c.rate, c.ownImages));
  }
  EXPECT_THAT(Log(), Contains("TessaraAnimationConsole::ParseCommandLineForGIF:Start").Times(3));
  EXPECT_THAT(Log(), Contains("TessaraAnimationConsole::ParseCommandLineForGIF:End").Times(3));
}

TEST_F(AppTest, SweepDeletesMarkedImagesOnly) {
  const TempFolder swept;
  swept.WriteAll({"frame_qmbImg_001.JPG", "qmbImg_1.png", "frame_QMBIMG_002.jpg",
                  "a_console_qmbImgTemp_3.png", "qmbImg.txt", "notes_qmbImg", "plain.png",
                  "folder_qmbImg.png/inside"});
  CleanTrails(swept.Path());
  EXPECT_THAT(swept.Names(), ElementsAre("folder_qmbImg.png", "frame_QMBIMG_002.jpg",
                                         "notes_qmbImg", "plain.png", "qmbImg.txt"));
  CleanTrails(swept / "missing");
  CleanTrails("");
  const std::string tag = "TessaraAnimationConsole::CleanTrails:";
  EXPECT_THAT(Log(), ElementsAre(tag + "Start", tag + "End", tag + "Start", tag + "Start"));
}

TEST_F(AppTest, RunEndsWhenTheFrameworkCannotStart) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  testing::internal::CaptureStderr();
  // There is no application object in the tests.
  EXPECT_EQ(RunConsole(0, nullptr, nullptr), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Fatal Error: MFC initialization failed\n");
  EXPECT_THAT(temp_.Names(), IsEmpty()) << "nothing is logged";
}

}  // namespace
