// What TessaraAnimate makes of its command line and of the times that it asks for; no frames.
#include "animate/options.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "animate/bad_frames.h"
#include "animate/frame_list.h"
#include "animate/timing.h"
#include "film/failure.h"
#include "tests/support/temp_folder.h"

namespace {

using animate::Options;
using animate::ReadOptions;
using testing::HasSubstr;
using Words = std::vector<std::string>;

// What a Failure says; nothing without one.
template <typename Function>
std::string Refusal(animate::ExitStatus status, const Function& function) {
  try {
    function();
  } catch (const animate::Failure& failure) {
    EXPECT_EQ(failure.Status(), status) << failure.what();
    return failure.what();
  }
  return "";
}

TEST(AnimateOptions, WrongUseIsOneLine) {
  const struct {
    Words arguments;
    const char* message;
  } kCases[] = {
      {{"f", "b.mp4", "c.mp4"}, "there are 3 paths"},
      {{}, "FRAMES is missing"},
      {{"f", ""}, "OUTPUT is empty"},
      {{"f", "--rescue", "g"}, "--rescue takes its folder alone"},
      {{"--from-list", "l", "f", "out.mp4"}, "there are no FRAMES"},
      {{"f", "out.mp4", "--rate", "0"}, "is not a number above 0"},
      {{"f", "out.mp4", "--rate", ""}, "is not a number above 0"},
      {{"f", "out.mp4", "--rate", "1001"}, "is not a number above 0"},
      {{"f", "out.mp4", "--rate", "1e1"}, "is not a number above 0"},
      {{"f", "out.mp4", "--rate", "1/0"}, "is not a number above 0"},
      {{"f", "out.mp4", "--rate", "2.5/2"}, "is not a number above 0"},
      {{"f", "out.mp4", "--rate", "1", "--rate", "2"}, "--rate has to be given once"},
      {{"f", "out.mp4", "--rate"}, "--rate has to be given once"},
      {{"f", "out.gif", "--rate", "51"}, "faster than 50"},
      {{"f", "--format", "gif", "--rate", "51"}, "faster than 50"},
      {{"f", "out.swf", "--rate", "0.5"}, "slower than 1"},
      {{"f", "out.mp4", "--size", "640"}, "is not WIDTHxHEIGHT"},
      {{"f", "out.mp4", "--size", "x"}, "is not WIDTHxHEIGHT"},
      {{"f", "out.mp4", "--quality", "0"}, "from 1 to 100"},
      {{"f", "out.mp4", "--quality", "101"}, "from 1 to 100"},
      {{"f", "--max-size", "10"}, "is not a size like 800kB"},
      {{"f", "--max-size", "0.0MB"}, "is not a size like 800kB"},
      {{"f", "--levels", "5-5"}, "is neither auto nor LOW-HIGH"},
      {{"f", "--levels", "0-65536"}, "is neither auto nor LOW-HIGH"},
      {{"f", "--threads", "0"}, "is not a whole number from 1 to 1024"},
      {{"f", "--levels", "auto", "--without-converter"}, "exclude each other"},
      {{"f", "out.mp4", "--background", "#12345g"}, "is no colour"},
      {{"f", "out.mp4", "--background", "nothing"}, "is no colour"},
      {{"f", "out.mp4", "--size", "0x9"}, "is not WIDTHxHEIGHT"},
      {{"f", "out.mp4", "--size", "16385x1"}, "is not WIDTHxHEIGHT"},
      {{"f", "out.txt"}, "does not end like"},
      {{"f", "f_%04d.png"}, "is a pattern for frames"},
      {{"f", "out.mp4", "--format", "gif"}, "--format is for an OUTPUT that is missing"},
      {{"f", "--format", "png"}, "is none of the formats"},
      {{"f", "none", "--each"}, "is no folder"},
      {{"f", "out.mp4", "--contact-sheet", "sheet.jpg"}, "does not end in .png"},
      {{"f", "--contact-sheet", "s.png", "--without-converter"}, "exclude each other"},
      {{"f", "--join=5"}, "--join takes no value"},
      {{"f", "--every", "0"}, "is not a whole number"},
      {{"f", "--bad", "drop"}, "none of refuse, skip and hold"},
      {{"f", "--numbers", "1"}, "neither decimal nor whole"},
      {{"f", "--speed", "0.0"}, "is not a number of units"},
      {{"f", "--speed", "1x"}, "is not a number of units"},
      {{"f", "--hold", "-1"}, "is not a number of seconds"},
      {{"f", "--only", "5-1"}, "is no range"},
      {{"f", "--fps", "5"}, "is --rate meant?"},
      {{"f", "--contactsheet=5"}, "is --contact-sheet meant?"},
      {{"f", "--out=x.mp4"}, "OUTPUT stands behind FRAMES"},
      {{"f", "-Z"}, "--help lists them all"},
  };
  for (const auto& c : kCases) {
    const std::string message =
        Refusal(animate::ExitStatus::kWrongUse, [&] { ReadOptions(c.arguments); });
    EXPECT_THAT(message, HasSubstr(c.message)) << testing::PrintToString(c.arguments);
    EXPECT_EQ(message.find('\n'), std::string::npos);
  }
}

TEST(AnimateOptions, AreTakenAsTheyAreMeant) {
  const Options options = ReadOptions(
      {"[old]", "out.GIF", "-r", "50", "--size", "16384X1", "--contact-sheet", "s.PNG"});
  EXPECT_EQ(std::tuple(options.rate.value, options.frames.filename().string(),
                       options.output.filename().string()),
            std::tuple(50.0, std::string("[old]"), std::string("out.GIF")));
  EXPECT_EQ(options.size, (animate::Size{16384, 1}));
  EXPECT_EQ(ReadOptions({"f", "--size", "x7"}).size, (animate::Size{0, 7}));
  EXPECT_EQ(ReadOptions({"f", "--background", "Orange"}).background,
            (animate::Colour{0xFF, 0xA5, 0x00}));
  const Options bounded =
      ReadOptions({"f", "--levels", "7-4095", "--max-size", "1.5 Mb", "--threads", "3"});
  EXPECT_EQ(std::tuple(bounded.levels->low, bounded.levels->high, bounded.maxBytes.value_or(0),
                       bounded.threads),
            std::tuple(7U, 4095U, 1'500'000U, 3));
  EXPECT_TRUE(ReadOptions({"f", "--levels", "auto"}).hasAutoLevels);
  EXPECT_NEAR(ReadOptions({"f", "-r", "30000/1001"}).rate.value, 29.97, 0.001);
  EXPECT_EQ(ReadOptions({"f", "-r", "1000"}).rate.value, 1000);
  const TempFolder folder;
  const Options inFolder = ReadOptions({"f", folder.Path(), "--format", ".WebM"});
  EXPECT_EQ(std::pair(inFolder.outputFolder, inFolder.output.string()),
            std::pair(std::filesystem::path(folder.Path()), std::string()));
  EXPECT_EQ(inFolder.format->extension, "webm");
  EXPECT_TRUE(ReadOptions({"--from-list", "-"}).frameList->empty());
  const Options chosen =
      ReadOptions({"f", "--numbers", "whole", "--every", "2", "--only", "1-", "--expect", "-9",
                   "--bad", "hold", "--hold", "1.5", "--quality", "100", "--converter", "c"});
  EXPECT_EQ(std::tuple(chosen.numbers, chosen.every, chosen.bad, chosen.hold, chosen.quality),
            std::tuple(animate::Numbers::kWhole, 2U, animate::BadFrames::kHold, 1.5, 100));
  EXPECT_TRUE(chosen.only->first && !chosen.only->last && chosen.expect->last);
  EXPECT_EQ(chosen.converter.filename(), "c");
  EXPECT_EQ(ReadOptions({"--", "-f"}).frames.filename(), "-f");
  const std::string help = ReadOptions({"-h"}).textToShow;
  EXPECT_LE(std::count(help.begin(), help.end(), '\n'), 45);
}

TEST(FrameList, HasOnePathALine) {
  using animate::ListedPaths;
  EXPECT_THAT(ListedPaths("\xEF\xBB\xBFn.png\r\n\r\n a 1.png \nb.png"),
              testing::ElementsAre("n.png", " a 1.png ", "b.png"));
  EXPECT_THAT(ListedPaths(""), testing::IsEmpty());
  EXPECT_THAT(Refusal(animate::ExitStatus::kFailure, [] { ListedPaths("\xFF\xFEl"); }),
              HasSubstr("UTF-16"));
}

// Frames with these numbers of a counter.
animate::Findings FramesAt(const std::vector<std::string>& numbers) {
  animate::Findings found;
  for (const std::string& number : numbers) {
    std::string_view text = number;
    found.frames.push_back({number, *animate::TakeDecimal(text)});
  }
  FindGaps(found);
  return found;
}

TEST(Timing, EachFrameStandsForItsTime) {
  const struct {
    std::vector<std::string> numbers;
    Words options;
    // How many ticks each frame has; what a refusal says.
    Words ticks;
    std::size_t unseen = 0;
  } kCases[] = {
      {{"1", "2", "5"}, {}, {"1", "1", "1"}},
      {{"1", "2", "5", "6"}, {"--fill-gaps"}, {"1", "3", "1", "1"}},
      {{"1", "2", "999999999999"}, {"--fill-gaps"}, {"--fill-gaps: too many"}},
      {{"1", "2"}, {"--hold", "1.5", "-r", "3"}, {"1", "6"}},
      {{"1", "2"}, {"--hold", "9999999"}, {"--hold: the film would have more"}},
      {{"0", "1", "3"}, {"--speed", "1", "-r", "2"}, {"2", "4", "4"}},
      {{"1e-05", "2e-05", "4e-05"}, {"--speed", "1e-5", "-r", "1"}, {"1", "2", "2"}},
      // To the nearest tick, halves up; the ticks before them do not add up errors.
      {{"0.1", "0.2", "0.3", "0.4", "0.5"},
       {"--speed", "0.2", "-r", "3"},
       {"2", "1", "2", "1", "2"}},
      {{"0", "0.1", "0.2", "1"}, {"--speed", "1", "-r", "4"}, {"0", "1", "3", "3"}, 1},
      {{"0", "0", "1"}, {"--speed", "1", "-r", "2"}, {"0", "2", "2"}, 1},
      // A second part goes on where the first ends.
      {{"5", "6", "1", "3"}, {"--speed", "1", "-r", "2"}, {"2", "2", "4", "4"}},
      {{"7", "7"}, {"--speed", "1"}, {"--speed: all frames have the same number"}},
      {{"0", "1"}, {"--speed", "100"}, {"fewer than two frames would be seen"}},
      {{"0", "90000000"}, {"--speed", "1", "-r", "1"}, {"give --speed 18.2 or more"}},
  };
  for (const auto& c : kCases) {
    Words ticks;
    Words arguments = c.options;
    arguments.insert(arguments.begin(), "f");
    const std::string refusal = Refusal(animate::ExitStatus::kFailure, [&] {
      const animate::Timing timing = TimeFrames(FramesAt(c.numbers), ReadOptions(arguments));
      for (std::size_t frame = 0; frame < c.numbers.size(); ++frame) {
        ticks.push_back(
            std::to_string(std::count(timing.shown.begin(), timing.shown.end(), frame)));
      }
      EXPECT_EQ(timing.unseen, c.unseen);
      EXPECT_TRUE(std::is_sorted(timing.shown.begin(), timing.shown.end()));
    });
    if (refusal.empty()) {
      EXPECT_EQ(ticks, c.ticks) << testing::PrintToString(c.numbers);
    } else {
      EXPECT_THAT(refusal, HasSubstr(c.ticks.front()));
    }
  }
}

TEST(BadFrames, AreTakenOutOfWhatIsShown) {
  using animate::BadFrames;
  using Shown = std::vector<std::size_t>;
  const struct {
    Shown shown, bad;
    BadFrames how;
    bool isByTime;
    // Empty for a refusal.
    Shown left;
  } kCases[] = {
      {{0, 1, 1, 2, 3}, {1}, BadFrames::kSkip, false, {0, 2, 3}},
      {{0, 1, 1, 2, 3}, {1}, BadFrames::kSkip, true, {0, 0, 0, 2, 3}},
      {{0, 1, 1, 2, 3}, {1, 2}, BadFrames::kHold, false, {0, 0, 0, 0, 3}},
      {{0, 1, 2, 3}, {0, 3}, BadFrames::kSkip, true, {1, 2, 2}},
      {{0, 1, 2, 3}, {0}, BadFrames::kHold, false, {}},
      {{0, 1, 2, 3}, {0, 1, 2}, BadFrames::kSkip, false, {}},
      {{0, 1}, {1}, BadFrames::kHold, false, {}},
  };
  for (const auto& c : kCases) {
    animate::Film film;
    film.frames.resize(4);
    film.shown = c.shown;
    std::vector<animate::BadFrame> bad;
    for (const std::size_t frame : c.bad) {
      bad.push_back({frame, "is empty"});
    }
    const std::string refusal =
        Refusal(animate::ExitStatus::kFailure, [&] { TakeOut(bad, c.how, c.isByTime, film); });
    EXPECT_EQ(refusal.empty() ? film.shown : Shown(), c.left) << refusal;
  }
}

}  // namespace
