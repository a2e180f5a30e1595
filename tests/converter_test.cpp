// What is made of the converter's words, without it.
#include <gmock/gmock.h>

#include "converter/contact_sheet.h"
#include "converter/decoding_log.h"
#include "converter/find_converter.h"
#include "converter/proof.h"
#include "converter/recipe.h"
#include "converter/size_limit.h"
#include "converter/small_pictures.h"
#include "converter/staging.h"
#include "film/failure.h"
#include "platform/start_tries.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"
#include "tests/support/variables.h"

namespace {

TEST(DecodingLog, TellsWhichFramesAreBad) {
  const std::string png = "[png @ 0x5] [error] ";
  const std::string lost = "[error] Error while decoding stream #0:0: Invalid data found";
  const auto out = [](int frame) {
    return "[Parsed_showinfo_1 @ 0x5] [info] n:   7 pts:" + std::to_string(frame) + "  pts_time:0";
  };
  const struct {
    std::vector<std::string> lines;
    // Each with its reason.
    std::string bad;
  } kCases[] = {
      {{"[warning] odd", out(0), out(1), out(2), out(3)}, ""},
      // One that comes out with an error, one that does not, and two.
      {{out(0), png + "torn", png + "more", out(1), out(2), out(3)}, "1 torn "},
      {{out(0), png + "torn", lost, out(2), out(3)}, "1 torn "},
      {{png + "a", lost, png + "b", lost, out(2), out(3)}, "0 a 1 b "},
      // The one behind a lost one is good, or bad.
      {{out(0), png + "a", lost, png + "b", out(2), out(3)}, "1 a 2 b "},
      {{out(0), out(1), png + "a", lost, "[fatal] b", lost}, "2 a 3 b "},
      // One that is lost without a word is not its own fault.
      {{out(0), out(1), out(2)}, ""},
      {{out(0), png + "torn", out(7), out(0), out(1), out(2), out(3)}, "1 torn "},
  };
  for (const auto& c : kCases) {
    animate::DecodingLog log(4);
    for (const std::string& line : c.lines) {
      log.Take(line);
    }
    std::string bad;
    for (const animate::DecodingLog::Fault& fault : log.Faults()) {
      bad += std::to_string(fault.frame) + " " + fault.error + " ";
    }
    EXPECT_EQ(bad, c.bad) << testing::PrintToString(c.lines);
  }
}

TEST(Proof, CountLengthAndSizeHaveToBeThoseOfTheFilm) {
  const struct {
    const char* extension;
    double rate;
    const char *tick, *size;
    // When the pictures are shown, in ticks, in the order in which they are written.
    std::vector<int> times;
    // Empty for a proven file of four frames.
    const char* message = "";
  } kCases[] = {
      {"mp4", 10, "1/1000", "6x4", {200, 500, 300, 400}},
      {"gif", 16, "1/100", "6x4", {0, 6, 13, 19}},
      {"gif", 16, "1/100", "6x4", {0, 19}},
      {"gif", 16, "1/100", "6x4", {0, 6, 13, 20}, "takes 0.260 s instead of 0.250 s"},
      {"gif", 16, "1/100", "6x4", {1, 19}, "takes 0.250 s instead"},
      // A container that counts frames has no clock that could be rounded to.
      {"avi", 10, "1/10", "6x4", {0, 1, 2, 3}},
      {"avi",
       10,
       "1/11",
       "6x4",
       {0, 1, 2, 3},
       "takes 0.273 s from the first frame to the last instead of 0.300 s"},
      {"swf", 10.003, "256/2560", "6x4", {0, 1, 2, 3}},
      {"mp4", 10, "1/1000", "6x4", {0, 100, 200, 303}, "takes 0.303 s"},
      {"mp4", 10, "1/1000", "6x4", {0, 100, 300}, "has 3 frames instead of 4"},
      {"mp4", 10, "1/1000", "4x6", {0, 100, 200, 300}, "has pictures of another size"},
  };
  for (const auto& c : kCases) {
    animate::Film film;
    film.shown = {0, 1, 1, 2};
    film.format = animate::FindFormat(c.extension);
    film.rate.value = c.rate;
    film.size = {6, 4};
    animate::Packets packets;
    packets.Take(std::string("#tb 0: ") + c.tick);
    packets.Take(std::string("#dimensions 0: ") + c.size);
    for (const int time : c.times) {
      packets.Take("0, 0, " + std::to_string(time) + ", 6");
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
    EXPECT_THAT(message, testing::HasSubstr(c.message));
    EXPECT_EQ(message.empty(), *c.message == '\0') << message;
  }
}

TEST(Proof, FindsThePictureOfAGifThatStandsAtATime) {
  animate::Film film;
  film.shown = {0, 1, 2, 3};
  film.rate.value = 10;
  const auto pairs = [&](const std::vector<long long>& times) {
    std::string text;
    for (const animate::Pair& pair : PairsByTime(film, times)) {
      text += std::to_string(pair.planned) + "-" + std::to_string(pair.seen) + " ";
    }
    return text;
  };
  EXPECT_EQ(pairs({0, 10, 20, 30}), "0-0 1-1 2-2 3-3 ");
  EXPECT_EQ(pairs({0, 20}), "0-0 1-0 2-1 3-1 ");
  EXPECT_EQ(pairs({0, 15, 20}), "0-0 1-0 1-1 2-2 3-2 ");
}

TEST(Comparing, TellsOtherAndNeighbouringPicturesFromWhatACoderLoses) {
  const struct {
    int quality;
    // The one value of all cells of each picture but the first, which is the same in all.
    std::vector<int> planned;
    std::vector<int> seen;
    const char* message;
    const char* format = "mp4";
  } kCases[] = {
      {80, {100, 100, 100}, {100, 100, 100}, "0 at 9"},
      {80, {100, 100, 100}, {100, 106, 100}, "6 at 1"},
      {80, {100, 100, 100}, {100, 107, 100}, "shows another picture in place of \"1.png\""},
      {30, {100, 100, 100}, {114, 100, 86}, "14 at 0"},
      {30, {100, 116, 100}, {100, 100, 116}, "another picture"},
      // Nearer to the one before, or behind; those that differ by less than 16 are one.
      {30, {100, 116, 100}, {100, 107, 100}, "shows a neighbour's picture in place of \"1.png\""},
      {30, {100, 100, 120}, {100, 111, 120}, "shows a neighbour's picture in place of \"1.png\""},
      {30, {100, 116, 100}, {100, 108, 100}, "8 at 1"},
      {30, {100, 115, 100}, {100, 103, 100}, "12 at 1"},
      {50, {100, 116, 100}, {100, 107, 100}, "shows a neighbour's picture", "gif"},
      {49, {100, 116, 100}, {100, 103, 100}, "13 at 1", "gif"},
      // A difference that every pixel of a GIF may be left behind by.
      {20, {100, 149, 100}, {100, 100, 100}, "49 at 1", "gif"},
      {20, {100, 150, 100}, {100, 104, 100}, "shows a neighbour's picture", "gif"},
      {80, {100, 100}, {100, 100, 100}, "does not show as many pictures"},
  };
  for (const auto& c : kCases) {
    animate::Film film;
    film.format = animate::FindFormat(c.format);
    film.quality = c.quality;
    SetPlanned(film, {64, 64});
    const TempFolder folder;
    const auto write = [&](const char* name, const std::vector<int>& values) {
      std::string content;
      for (const int value : values) {
        content += std::string(3, '\x64') + std::string(45, static_cast<char>(value));
      }
      folder.Write(name, content);
      return std::filesystem::path(folder.File(name));
    };
    for (std::size_t index = 0; index < c.planned.size(); ++index) {
      film.frames.push_back({.path = std::to_string(index) + ".png", .status = {}});
      film.shown.push_back(index);
    }
    std::string said;
    try {
      const auto pairs = animate::InOrder(c.seen.size());
      const auto planned = write("planned", c.planned);
      const auto seen = write("seen", c.seen);
      said = std::to_string(ComparePictures(film, planned, seen, pairs).difference) + " at " +
             std::to_string(FirstOther(film, planned, seen).value_or(9));
    } catch (const animate::Failure& failure) {
      said = failure.what();
    }
    EXPECT_THAT(said, testing::HasSubstr(c.message)) << testing::PrintToString(c.seen);
  }
}

TEST(Staging, SeesAFileWrittenAnewThatHasItsSizeAndTimeBack) {
  const TempFolder folder;
  folder.WriteAll({"1.png", "2.png"});
  animate::Film film;
  film.frameType = "png";
  for (const char* name : {"1.png", "2.png"}) {
    film.shown.push_back(film.frames.size());
    film.frames.push_back({.path = folder.File(name), .status = {}});
  }
  const animate::Staging staging(film, {});
  EXPECT_FALSE(staging.IsTouched(film));
  const auto time = std::filesystem::last_write_time(folder.File("2.png"));
  folder.Write("2.png", "other");
  std::filesystem::last_write_time(folder.File("2.png"), time);
  EXPECT_TRUE(staging.IsTouched(film));
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

TEST(SizeLimit, FindsTheLargestThatFitsWithFewTries) {
  for (const std::uint64_t most : {999, 1000, 1001, 5000, 79'000, 80'000, 90'000}) {
    int tries = 0;
    const auto size = [&](int quality) {
      ++tries;
      return static_cast<std::uint64_t>(1000 * std::exp((quality - 40) * std::log(80.0) / 60));
    };
    const int found = animate::LargestWithin(most, 40, 100, size);
    EXPECT_LE(tries, 7) << most;
    EXPECT_TRUE(found == 39 || size(found) <= most) << most;
    EXPECT_TRUE(found == 100 || size(found + 1) > most) << most;
  }
  for (int last = 40; last < 100; ++last) {
    const auto size = [&](int quality) -> std::uint64_t { return quality > last ? 9000 : 10; };
    EXPECT_EQ(animate::LargestWithin(500, 40, 100, size), last);
  }
  animate::Film film;
  film.format = animate::FindFormat("mp4");
  SetPlanned(film, {101, 1});
  const animate::Film quarter = animate::Shrunk(film, 25);
  EXPECT_EQ(std::pair(quarter.planned, quarter.size),
            std::pair(animate::Size{25, 1}, animate::Size{26, 2}));
}

// The encoder of MP4 would go beyond what players show.
TEST(Recipe, NamesTheLevelThatLargePicturesStillFitInto) {
  const struct {
    animate::Size size;
    double rate;
    bool isNamed;
  } kCases[] = {
      {{1920, 1080}, 60, false}, {{2048, 1088}, 60, false},  {{2050, 1088}, 60, true},
      {{4096, 2304}, 26, true},  {{4096, 2304}, 27, false},  {{4098, 2304}, 1, false},
      {{16, 16384}, 900, false}, {{9 * 16, 16384}, 1, true},
  };
  animate::Film film;
  film.format = animate::FindFormat("mp4");
  for (const auto& c : kCases) {
    SetPlanned(film, c.size);
    film.rate.value = c.rate;
    EXPECT_EQ(testing::Value(EncodingWords(film), testing::Contains("5.1")), c.isNamed)
        << c.size.width << " " << c.rate;
  }
}

TEST(Recipe, HasNoPicturesThatAreNeverShownBesideTransparency) {
  using FreePixels = animate::Film::FreePixels;
  animate::Film film;
  film.format = animate::FindFormat("webm");
  for (const FreePixels pixels : {FreePixels::kNone, FreePixels::kKept}) {
    film.freePixels = pixels;
    EXPECT_EQ(testing::Value(EncodingWords(film), testing::Contains("-auto-alt-ref")),
              pixels == FreePixels::kKept);
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

TEST(FindConverter, LooksInTheInstallationAndThenInThePath) {
  const std::string name = platform::ExecutableFileName("ffmpeg");
  const TempFolder one;
  const TempFolder two;
  const TempFolder data;
  Variables here;
  const auto find = [&](const char* installation, const std::string& path) {
    here.Set("TESSARA_DIR", installation);
    here.Set("PATH", path.c_str());
    return animate::FindConverters("").front().parent_path();
  };
  const auto write = [&](const TempFolder& folder, const std::string& path) {
    folder.Write(path + name);
    std::filesystem::permissions(folder.File(path + name), std::filesystem::perms::owner_all);
  };
  // Folders of those names are no converters, and files that cannot be started are none either.
  one.Write(name + "/file");
  data.Write("ffmpeg");
  write(two, "");
  const std::string to = kIsWindows ? ";" : ":";
  const std::string both = one.Path() + to + to + data.Path() + to + two.Path();
  EXPECT_THROW(find(nullptr, one.Path()), animate::Failure);
  EXPECT_EQ(find(nullptr, both), two.Path());
  EXPECT_EQ(find(one.Path().c_str(), both), two.Path());
  write(one, "TessaraPro64/");
  EXPECT_EQ(find(one.Path().c_str(), both), one.File("TessaraPro64"));
  EXPECT_EQ(animate::FindConverters(two.File(name)),
            std::vector<std::filesystem::path>{two.File(name)});
  EXPECT_THROW(animate::FindConverters(two.Path()), animate::Failure);
}

}  // namespace
