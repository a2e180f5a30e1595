#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "frames/get_cae_data.h"
#include "frames/own_images.h"
#include "log/diagnostic_log.h"
#include "tests/reference/literal_ordering.h"
#include "tests/support/log_fixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::UnorderedElementsAreArray;
using Names = std::vector<std::string>;

class FramesTest : public LogFixture {
 protected:
  // Discovery on names that no folder needs to hold.
  static k3dGetCAEData WithNames(const Names& names) {
    k3dGetCAEData data;
    data.m_sDirectoryName = "F";
    for (const std::string& name : names) {
      data.m_saFileNames.Add(name);
    }
    return data;
  }

  // The frame list of those names without its folder.
  static Names Order(const Names& names) {
    k3dGetCAEData data = WithNames(names);
    data.GetCommonFileName();
    data.GetCAEData();
    Names frames;
    for (const CString& path : data.m_saImageFiles) {
      EXPECT_EQ(path.Left(2), "F\\");
      frames.push_back(path.Mid(2));
    }
    return frames;
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
      {{"s99999999999.png", "s-99999999999.png", "s7.png"},
       {"s-99999999999.png", "s7.png", "s99999999999.png"}},
      {{"s3_1.png", "s1.png", "s4_1.png"}, {"s4_1.png", "s3_1.png"}},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Order(c.names), c.frames) << c.names.front();
  }
}

// Pieces that provoke ties, duplicate numbers, signs, leading zeros, several underscores, sets that
// mix one and two numbers, and the search from the rear.
Names RandomNames(std::mt19937& random) {
  static const Names kPieces = {"a", "b", "ab", "_", "_", "-", "+", " ",
                                ".", "0", "1",  "1", "2", "3", "10"};
  static const Names kTypes = {".png", ".png", ".jpg", ".p_1", ""};
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  const std::string shared = below(2) == 0 ? kPieces[below(4)] : "";
  const std::size_t fixedShape = below(3);
  Names names;
  for (std::size_t i = 2 + below(7); i > 0; --i) {
    std::string name = shared;
    if (fixedShape == 0) {
      name += "s" + kPieces[9 + below(6)] + "_" + kPieces[9 + below(6)];
    } else {
      for (std::size_t piece = below(5); piece > 0; --piece) {
        name += kPieces[below(kPieces.size())];
      }
    }
    name += below(6) == 0 ? "x" : "";
    name += fixedShape == 1 ? kTypes[below(kTypes.size())] : ".png";
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
      names.push_back(name);
    }
  }
  return names;
}

TEST_F(FramesTest, AgreesWithTheLiteralRulesOnRandomNames) {
  InitLog("missing folder\\log.txt", true);  // Thousands of logged lines would only cost time.
  std::mt19937 random(20260224);
  int fromRear = 0, failedSorts = 0, twoKeys = 0;
  for (int round = 0; round < 4000; ++round) {
    const Names names = RandomNames(random);
    if (names.empty()) {
      continue;
    }
    const LiteralResult expected = OrderLiterally(names);
    k3dGetCAEData data = WithNames(names);
    ASSERT_EQ(data.GetCommonFileName(), expected.frontCommonPart.has_value())
        << testing::PrintToString(names);
    ASSERT_EQ(data.m_sCommonStr.GetString(), expected.frontCommonPart.value_or(""))
        << testing::PrintToString(names);
    ASSERT_EQ(data.GetCAEData(), expected.frames.size() >= 2) << testing::PrintToString(names);
    ASSERT_EQ(data.m_sCommonStr.GetString(), expected.commonPart) << testing::PrintToString(names);
    Names frames;
    for (const CString& path : data.m_saImageFiles) {
      frames.push_back(path.Mid(2));
    }
    ASSERT_EQ(frames, expected.frames) << testing::PrintToString(names);
    fromRear += expected.commonPart != expected.frontCommonPart.value_or("") ? 1 : 0;
    failedSorts += expected.frames.empty() ? 1 : 0;
    twoKeys += !frames.empty() && frames.front().find('_') != std::string::npos ? 1 : 0;
  }
  EXPECT_GT(fromRear, 100);
  EXPECT_GT(failedSorts, 100);
  EXPECT_GT(twoKeys, 100);
}

TEST_F(FramesTest, ScanTakesImagesByName) {
  folder_.WriteAll({"s1.Jpeg", "s2.PNG", "s.jpe", "s.webp", "s", "s3.tIf", "s.txt",
                    "s_qmbImgTemp_1.png", "s_qmbImgTemp_2.png", "s_QMBIMGTEMP_3.png"});
  folder_.MakeFolder("s9.png");
  for (const bool ownImages : {false, true}) {
    Names expected = {"s_qmbImgTemp_1.png", "s_qmbImgTemp_2.png"};
    if (!ownImages) {
      expected.insert(expected.end(),
                      {"s1.Jpeg", "s2.PNG", "s3.tIf", "s9.png", "s_QMBIMGTEMP_3.png"});
    }
    g_ownImages = ownImages;
    k3dGetCAEData data;
    data.m_sDirectoryName = folder_.Path();
    EXPECT_TRUE(data.GetFilesFromDirectory());
    EXPECT_THAT(Names(data.m_saFileNames.begin(), data.m_saFileNames.end()),
                UnorderedElementsAreArray(expected));
  }
}

TEST_F(FramesTest, DeletesTheListedFilesAndNoOthers) {
  folder_.WriteAll({"a1.png", "a2.png", "a3.png"});
  folder_.MakeFolder("a4.png");
  k3dGetCAEData data;
  data.DeleteImageFiles();
  EXPECT_THAT(
      Log(),
      Contains(
          "TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():no temp image files are created"));
  for (const char* name : {"a1.png", "missing.png", "a4.png", "a2.png", "a2.png"}) {
    data.m_saImageFiles.Add(folder_ / name);
  }
  data.DeleteImageFiles();
  EXPECT_THAT(folder_.Names(), ElementsAre("a3.png", "a4.png"));
  EXPECT_THAT(
      Log(),
      Contains(
          "TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles(): deleted 5 temp image files"));
}

}  // namespace
