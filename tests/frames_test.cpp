#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "frames/get_cae_data.h"
#include "frames/own_images.h"
#include "log/diagnostic_log.h"
#include "movie/avi_creator.h"
#include "tests/reference/literal_ordering.h"
#include "tests/support/log_fixture.h"

namespace {

using namespace testing;
using Names = std::vector<std::string>;

class FramesTest : public LogFixture {
 protected:
  // What discovery makes of names that no folder needs to hold.
  static LiteralResult Order(const Names& names) {
    k3dGetCAEData data;
    data.m_sDirectoryName = "F";
    for (const std::string& name : names) {
      data.m_saFileNames.Add(name);
    }
    data.GetCommonFileName();
    const bool isEnough = data.GetCAEData();
    LiteralResult result = {data.m_sCommonStr.GetString(), {}};
    for (const CString& path : data.m_saImageFiles) {
      EXPECT_EQ(path.Left(2), "F\\");
      result.frames.push_back(path.Mid(2));
    }
    EXPECT_EQ(isEnough, result.frames.size() >= 2);
    return result;
  }

  TempFolder folder_;
};

TEST_F(FramesTest, OrdersByNumber) {
  const struct {
    Names names, frames;
  } kCases[] = {
      {{"img1.png", "img10.bmp", "img2.jpg"}, {"img1.png", "img2.jpg", "img10.bmp"}},
      {{"shot_2_1.jpg", "shot_1_3.png", "shot_1_2.png", "shot_2_0.png"},
       {"shot_1_2.jpg", "shot_1_3.jpg", "shot_2_0.jpg", "shot_2_1.jpg"}},
      {{"a1.png", "a2.png", "1x.png", "2x.png", "3x.png", "4x.png"},
       {"1x.png", "2x.png", "3x.png", "4x.png"}},
      {{"s3_1.png", "s1.png", "s4_1.png"}, {"s4_1.png", "s3_1.png"}},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Order(c.names).frames, c.frames);
  }
}

// Names of few different pieces, which provoke ties, duplicate numbers, signs, leading zeros,
// several underscores, sets that mix one and two numbers, and the search from the rear.
Names RandomNames(std::mt19937& random) {
  const auto any = [&random](const Names& of) { return of[random() % of.size()]; };
  const Names all = {"a", "b", "ab", "_", "_", "-", "+", " ", ".", "0", "1", "1", "2", "3", "10"};
  const Names pieces = {"", any(all), any(all), any(all), any(all), any(all)};
  const Names starts = {any({"", "s"}), any({"", "s"}), any(all)};
  const Names types = {".png", any({".png", ".jpg", ".p_1", ""})};
  Names names;
  for (std::size_t count = 2 + random() % 7; count > 0; --count) {
    const std::string name =
        any(starts) + any(pieces) + any(pieces) + any(pieces) + any(pieces) + any(types);
    if (!name.empty() && std::count(names.begin(), names.end(), name) == 0) {
      names.push_back(name);
    }
  }
  return names;
}

TEST_F(FramesTest, AgreesWithTheLiteralRulesOnRandomNames) {
  InitLog("missing folder\\log.txt", true);  // Thousands of logged lines would only cost time.
  std::mt19937 random(20260224);
  for (int round = 0; round < 4000; ++round) {
    const Names names = RandomNames(random);
    if (!names.empty()) {
      ASSERT_EQ(Order(names), OrderLiterally(names)) << PrintToString(names);
    }
  }
}

TEST_F(FramesTest, ScanTakesImagesByName) {
  folder_.WriteAll({"s1.Jpeg", "s2.PNG", "s.jpe", "s.webp", "s", "s3.tIf", "s.txt", "s9.png/inside",
                    "s_qmbImgTemp_1.png", "s_qmbImgTemp_2.png", "s_QMBIMGTEMP_3.png"});
  const std::pair<bool, Names> kCases[] = {
      {true, {"s_qmbImgTemp_1.png", "s_qmbImgTemp_2.png"}},
      {false,
       {"s1.Jpeg", "s2.PNG", "s3.tIf", "s9.png", "s_qmbImgTemp_1.png", "s_qmbImgTemp_2.png",
        "s_QMBIMGTEMP_3.png"}},
  };
  for (const auto& [ownImages, names] : kCases) {
    g_ownImages = ownImages;
    k3dGetCAEData data;
    data.m_sDirectoryName = folder_.Path();
    EXPECT_TRUE(data.GetFilesFromDirectory());
    EXPECT_THAT(Names(data.m_saFileNames.begin(), data.m_saFileNames.end()),
                UnorderedElementsAreArray(names));
  }
}

TEST_F(FramesTest, AMovieHasNoFramesOfTheOneBefore) {
  folder_.WriteAll({"s1.png", "s2.png"});
  k3dAviCreator creator;
  creator.m_sInputFolder = folder_.Path();
  creator.m_caeData.m_saImageFiles.Add("frame of another movie.png");
  EXPECT_TRUE(creator.GetTheImages());
  EXPECT_EQ(creator.m_caeData.m_saImageFiles.GetSize(), 2);
}

TEST_F(FramesTest, DeletesTheListedFilesAndNoOthers) {
  folder_.WriteAll({"a1.png", "a2.png", "a3.png", "a4.png/inside"});
  k3dGetCAEData data;
  data.DeleteImageFiles();
  for (const char* name : {"a1.png", "missing.png", "a4.png", "a2.png", "a2.png"}) {
    data.m_saImageFiles.Add(folder_ / name);
  }
  data.DeleteImageFiles();
  EXPECT_THAT(folder_.Names(), ElementsAre("a3.png", "a4.png"));
  const std::string tag = "TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():";
  EXPECT_THAT(Log(),
              ElementsAre(tag + "Start", tag + "no temp image files are created", tag + "End",
                          tag + "Start", tag + " deleted 5 temp image files", tag + "End"));
}

}  // namespace
