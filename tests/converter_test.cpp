// What is made of the converter's words, without it.
#include <gmock/gmock.h>

#include "converter/bad_frame.h"
#include "converter/contact_sheet.h"
#include "converter/find_converter.h"
#include "converter/proof.h"
#include "film/failure.h"
#include "platform/program.h"
#include "platform/start_tries.h"
#include "tests/support/temp_folder.h"
#include "tests/support/variables.h"

namespace {

using animate::FindFormat;

TEST(BadFrame, IsFoundWhereverItIs) {
  for (std::size_t count = 2; count < 20; ++count) {
    for (std::size_t bad = 0; bad <= count + 1; ++bad) {
      // A second one further behind makes no difference; beyond the last there is none.
      const auto areGood = [&](std::size_t first, std::size_t number) {
        const auto isIn = [&](std::size_t one) { return one >= first && one < first + number; };
        EXPECT_LE(first + number, count + 1);
        return bad != 0 && !isIn(bad) && !(bad + 3 < count && isIn(bad + 3));
      };
      const auto found = animate::FindBadNumber(count, areGood);
      // When none can be decoded it is no frame's fault.
      const bool isFound = bad >= 1 && bad <= count;
      EXPECT_EQ(found.value_or(0), isFound ? bad : 0) << bad << " of " << count;
    }
  }
}

TEST(Proof, CountsLengthAndSizeHaveToBeThoseOfTheFilm) {
  const struct {
    const char* extension;
    double rate;
    std::vector<const char*> lines;
    // Empty for a proven file of four frames.
    const char* message = "";
  } kCases[] = {
      // Pictures are not written in the order in which they are shown.
      {"mp4",
       10,
       {"#tb 0: 1/1000", "#dimensions 0: 6x4", "0, 0, 200,", "0, 1, 500,", "0, 2, 300,",
        "0, 3, 400,"}},
      {"gif",
       16,
       {"#tb 0: 1/100", "#dimensions 0: 6x4", "0, 0, 0,", "0, 6, 6,", "0, 13, 13,", "0, 19, 19,"}},
      // A container that counts frames has no clock that could be rounded to.
      {"avi",
       10,
       {"#tb 0: 1/10", "#dimensions 0: 6x4", "0, 0, 0,", "0, 1, 1,", "0, 2, 2,", "0, 3, 3,"}},
      {"avi",
       10,
       {"#tb 0: 1/11", "#dimensions 0: 6x4", "0, 0, 0,", "0, 1, 1,", "0, 2, 2,", "0, 3, 3,"},
       "takes 0.273 s from the first frame to the last instead of 0.300 s"},
      {"swf",
       10.003,
       {"#tb 0: 256/2560", "#dimensions 0: 6x4", "0, 0, 0,", "0, 1, 1,", "0, 2, 2,", "0, 3, 3,"}},
      {"mp4",
       10,
       {"#tb 0: 1/1000", "#dimensions 0: 6x4", "0, 0, 0,", "0, 1, 100,", "0, 2, 200,",
        "0, 3, 303,"},
       "takes 0.303 s"},
      {"mp4",
       10,
       {"#tb 0: 1/1000", "#dimensions 0: 6x4", "0, 0, 0,", "0, 1, 100,", "0, 2, 300,"},
       "has 3 frames instead of 4"},
      {"mp4",
       10,
       {"#tb 0: 1/1000", "#dimensions 0: 4x6", "0, 0, 0,", "0, 1, 100,", "0, 2, 200,",
        "0, 3, 300,"},
       "has pictures of another size"},
  };
  for (const auto& c : kCases) {
    animate::Film film;
    film.shown = {0, 1, 1, 2};
    film.format = FindFormat(c.extension);
    film.rate.value = c.rate;
    film.size = {6, 4};
    animate::Packets packets;
    for (const char* line : c.lines) {
      packets.Take(line);
    }
    std::string message;
    try {
      const animate::Measurement measured = animate::Measured(film, packets);
      EXPECT_EQ(measured.frames, 4U);
      EXPECT_NEAR(measured.length, 4 / c.rate, 1e-9);
      EXPECT_EQ(measured.size, film.size);
    } catch (const animate::Failure& failure) {
      message = failure.what();
    }
    EXPECT_EQ(message.find(c.message) == std::string::npos, false) << message;
    EXPECT_EQ(message.empty(), *c.message == '\0') << message;
  }
}

TEST(ContactSheet, SpreadsItsFramesFromTheFirstToTheLast) {
  animate::Film film;
  film.shown = {0};
  for (std::size_t index = 1; index < 200; ++index) {
    film.shown.push_back(index);
    const std::vector<std::size_t> frames = animate::FramesOnSheet(film);
    EXPECT_EQ(frames.size(), std::min<std::size_t>(index + 1, 48));
    EXPECT_EQ(frames.front(), 0U);
    EXPECT_EQ(frames.back(), index);
  }
}

TEST(Start, IsTriedAgainOnlyWhereTheErrorSoonPasses) {
  const struct {
    std::vector<int> errors;
    int last;
  } kCases[] = {{{0}, 0}, {{11, 11, 0}, 0}, {{11, 2}, 2}, {{2}, 2}};
  for (const auto& c : kCases) {
    std::size_t tries = 0;
    EXPECT_EQ(platform::TryToStart([&] { return c.errors.at(tries++); },
                                   [](int error) { return error == 11; }),
              c.last);
    EXPECT_EQ(tries, c.errors.size());
  }
}

class FindConverter : public testing::Test {
 protected:
  // Sets the variables, finds "ffmpeg" in them, and returns its folder.
  std::string Find(const char* installation, const std::string& path) {
    Variables here;
    here.Set("TESSARA_DIR", installation);
    here.Set("PATH", path.c_str());
    try {
      return animate::FindConverter("").parent_path().string();
    } catch (const animate::Failure& failure) {
      return failure.what();
    }
  }

  TempFolder one_;
  TempFolder two_;
};

TEST_F(FindConverter, LooksInTheInstallationAndThenInThePath) {
  const std::string name = platform::ExecutableFileName("ffmpeg");
  const std::string separator = name == "ffmpeg" ? ":" : ";";
  // Folders of those names are no converters.
  one_.Write(name + "/file");
  two_.Write(name);
  const std::string both = one_.Path() + separator + separator + two_.Path();
  EXPECT_THAT(Find(nullptr, one_.Path()), testing::StartsWith("no converter can be found: put"));
  EXPECT_EQ(Find(nullptr, both), two_.Path());
  EXPECT_EQ(Find(one_.Path().c_str(), both), two_.Path());
  one_.Write("TessaraPro64/" + name);
  EXPECT_EQ(Find(one_.Path().c_str(), both),
            (std::filesystem::path(one_.Path()) / "TessaraPro64").string());
  EXPECT_EQ(animate::FindConverter(two_.Path() + "/" + name).filename(), name);
  EXPECT_THROW(animate::FindConverter(two_.Path()), animate::Failure);
}

}  // namespace
