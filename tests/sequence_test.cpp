// Which images of a folder are a film, and in which order: names in, order or refusal out.
#include "sequence/selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "film/failure.h"
#include "platform/paths.h"
#include "sequence/name_pattern.h"
#include "sequence/range.h"
#include "tests/reference/literal_sequence.h"

namespace {

using animate::SequenceOptions;
using Words = std::vector<std::string>;

// The stems of the frames between commas, or behind "!" why there are none.
std::string Found(const std::string& stems, const SequenceOptions& options,
                  const std::function<std::string(const animate::Findings&)>& shown) {
  std::vector<std::filesystem::path> names;
  std::istringstream words(stems);
  for (std::string stem; std::getline(words, stem, '|');) {
    names.emplace_back(std::filesystem::path(std::u8string(stem.begin(), stem.end()) + u8".png"));
  }
  try {
    return shown(animate::FindSequence(names, options));
  } catch (const animate::Failure& failure) {
    return std::string("!") + failure.what();
  }
}

std::string Order(const animate::Findings& findings) {
  std::string text;
  for (const animate::FoundFrame& frame : findings.frames) {
    text += (text.empty() ? "" : "|") + platform::TextOfPath(frame.name.stem());
  }
  return text;
}

std::string Missing(const animate::Findings& findings) {
  std::string text = findings.step ? "by " + findings.step->Text() : "no step";
  for (const animate::Gap& gap : findings.gaps) {
    text += ", " + gap.first + (gap.count == 1 ? "" : " to " + gap.last) + " after " +
            std::to_string(gap.after);
  }
  return text;
}

TEST(Sequence, ReadsNumbersAsTheNamesTellTogether) {
  const SequenceOptions decimal = {.numbers = animate::Numbers::kDecimal};
  const SequenceOptions whole = {.numbers = animate::Numbers::kWhole};
  const std::string both = "!the numbers can be read in two ways: as decimals ";
  const std::string options = "; give --numbers decimal or --numbers whole";
  const struct {
    const char* names;
    // Empty for the names as they stand; what a refusal begins with.
    std::string order = {};
    SequenceOptions options = {};
  } kCases[] = {
      // Decimals.
      {"p_0.05|p_0.1|p_0.15|p_0.2"},
      {"p_0,05|p_0,1|p_0,15"},
      {"t=1e-05|t=0.1|t=0.25|t=0.5|t=1|t=1.5|t=10"},
      {"0.0|0.25|0.5|1.0|10.0"},
      {"t=1e-100|t=1e-05|t=1.0"},
      {"step_003_t0.0001|step_010_t0.00005|step_010_t1"},
      {"1.0E-5|2.5E-5|1.0E-4|1.0|1.0E10"},
      {"t2.5e0|t1.5e1"},
      {"x0.5,1.0|x0.5,1.25|x0.5,1.5|x10.5,1.75"},
      // Signs.
      {"angle_-10|angle_-9|angle_0|angle_9|angle_10"},
      {"z=-5|z=-2|z=4"},
      {"(-3)|(-2)|(1)"},
      {"-2|-1|0|+5"},
      {"shot-2-9|shot-2-10"},
      {"run-4|run-5"},
      // Counters.
      {"1.1|1.2|1.3|1.4|1.5|1.6|1.7|1.8|1.9|1.10"},
      {"1.0|1.9|1.10"},
      {"v1.2.3_007|v1.2.3_008|v1.2.20_001"},
      {"s01e01|s01e02|s01e03|s02e04"},
      {"9|10|00011|12345678901234567890123456789"},
      // What nothing tells, or both.
      {"1.9|1.11|1.2",
       both + "1.11.png, 1.2.png, 1.9.png; as counters 1.2.png, 1.9.png, 1.11.png" + options},
      {"1.11|1.2|1.9", "", decimal},
      {"1.2|1.9|1.11", "", whole},
      {"1.9|1.10|1.05",
       both + "... 1.10.png, 1.9.png; as counters ... 1.9.png, 1.10.png" + options},
      {"1.05|1.10|1.9", "", decimal},
      {"1.9|1.10|2", both},
      {"a1e3|a5e3|a1e4", both},
      {"0.5|1.0|1.5|2.0|2.5|3.0|3.5|4.0|4.5|5.0|9.0|10.0"},
      {"0.5|01.0|1.0|1.5|2.0|2.5|3.0|3.5|4.0|4.5|5.0|9.0|10.0"},
      {"t0.50|t1.25|t2.00"},
      {"cam1.000|cam1.001|cam2.000|cam2.001",
       both +
           "cam1.000.png, cam1.001.png, cam2.000.png, cam2.001.png; as counters 2 films, cam1.000.png to cam1.001.png (2), cam2.000.png to cam2.001.png (2)" +
           options},
      // Dates and times.
      {"20240305_115958|20240305_115959|20240306_000000"},
      {"2024-03-05T11-59-58|2024-03-05T11-59-58.5|2024-03-05T11-59-59"},
      {"IMG_20240305_115958|IMG_20240305_115958123|IMG_20240305_115959"},
      {"Screenshot 2024-03-05 at 12.30.00 AM|Screenshot 2024-03-05 at 9.05.12 AM|Screenshot 2024-03-05 at 12.30.00\u202FPM|Screenshot 2024-03-05 at 1.05.00pm|Screenshot 2024-03-06 at 1.00.00 AM"},
      {"12.00 AM|9.05 am|12.30 PM|1.00 PM"},
      {"x1am|x12am"},
      {"1x05am|12x05am"},
      {"2024.3.5|2024.3.10|2024.12.1"},
      {"2024-03-25.5|2024-03-25.25|2024-03-25.35"},
      {"12.00.14|12.00.15|12.01.00|13.00.15"},
      {"11-59-58 2024-03-05|10-00-00 2024-03-06"},
      {"06.02.2024|05.03.2024"},
      {"25-03-2024|06-04-2024"},
      {"05-03-2024|06-03-2024"},
      {"05-03-2024|06-02-2024",
       "!the numbers can be read in two ways: as counters 05-03-2024.png, 06-02-2024.png; as day-month-year 06-02-2024.png, 05-03-2024.png; "},
      {"05-03-2024|06-02-2024", "", whole},
      {"f_20240199|f_20240200|f_20240301"},
  };
  for (const auto& c : kCases) {
    // The other way round, so that no order comes of itself.
    Words names;
    std::istringstream words(c.names);
    for (std::string name; std::getline(words, name, '|');) {
      names.insert(names.begin(), name);
    }
    std::string reversed;
    for (const std::string& name : names) {
      reversed += name + "|";
    }
    const std::string found = Found(reversed, c.options, Order);
    EXPECT_EQ(c.order.empty() ? found : found.substr(0, c.order.size()),
              c.order.empty() ? c.names : c.order);
  }
}

TEST(Sequence, TellsPartsFromFilmsThatGoOn) {
  const std::string ways =
      "; name a frame of the one that is meant, or give --join (one after the other) or --each (an animation of each)";
  const std::string cameras = "cam1_000|cam1_001|cam2_000|cam2_001";
  const std::string moments = "img_t000_c1|img_t000_c2|img_t001_c1|img_t001_c2|img_t002_c2";
  const struct {
    std::string names;
    std::string order = {};
    SequenceOptions options = {};
  } kCases[] = {
      {cameras,
       "!there are 2 films side by side: cam1_000.png to cam1_001.png (2), cam2_000.png to cam2_001.png (2)" +
           ways},
      {cameras, "cam2_000|cam2_001", {.wanted = "cam2_001.png"}},
      {cameras, cameras, {.join = true}},
      {cameras, "cam1_000|cam1_001", {.pattern = "CAM1_*.png"}},
      {moments,
       "!there are 2 films side by side: img_t000_c1.png to img_t001_c1.png (2), img_t000_c2.png to img_t002_c2.png (3)" +
           ways},
      {moments, "img_t000_c1|img_t001_c1|img_t000_c2|img_t001_c2|img_t002_c2", {.join = true}},
      {"shot_1_1|shot_1_2|shot_2_1", "!there are 2 films"},
      {"shot_1_1|shot_1_2|shot_2_3|shot_2_4", "shot_1_1|shot_1_2|shot_2_3|shot_2_4"},
      {"1.8|1.9|1.10|2.1", "1.8|1.9|1.10|2.1"},
      {"2024-03-05_1|2024-03-05_2|2024-03-05_3|2024-03-06_1",
       "2024-03-05_1|2024-03-05_2|2024-03-05_3|2024-03-06_1"},
      {"f_1_2024-03-05|f_1_2024-03-06|f_2_2024-03-05", "!there are 2 films"},
      {"b1|b2|a1|a2",
       "!there are 2 equally large films side by side: a1.png to a2.png (2), b1.png to b2.png (2)" +
           ways},
      {"b1|b2|a1|a2|c1", "a1|a2|b1|b2", {.join = true}},
      {"b1|b2|a1|a2|logo", "b1|b2", {.wanted = "b2.png"}},
      {"a1|logo", "!\"logo.png\" is no frame", {.wanted = "logo.png"}},
      {"a1", "!there is no sequence of two or more frames, only a1.png"},
  };
  for (const auto& c : kCases) {
    EXPECT_THAT(Found(c.names, c.options, Order), testing::StartsWith(c.order)) << c.names;
  }
}

// The names that stand between accent signs in a cell of the page's tables.
std::vector<std::string> ExamplesIn(const std::string& cell) {
  std::vector<std::string> examples;
  std::istringstream pieces(cell);
  bool isExample = false;
  for (std::string piece; std::getline(pieces, piece, '`'); isExample = !isExample) {
    // Not one name with blanks in it, and no names left out.
    const bool isList = piece.find_first_of("0123456789") < piece.find(' ') &&
                        piece.find(' ') != std::string::npos &&
                        piece.find("...") == std::string::npos && piece.find('M') > piece.size();
    if (isExample && isList) {
      examples.push_back(piece);
    }
  }
  return examples;
}

TEST(Sequence, ThePageSaysTheTruth) {
  std::ifstream page(TESSARA_PAGES "/tessara_animate.md");
  int examples = 0;
  for (std::string line; std::getline(page, line);) {
    const std::size_t first = line.find(" | ");
    for (std::string names :
         line.starts_with("| `") ? ExamplesIn(line.substr(0, first)) : Words()) {
      const bool isRefused = line.find("| asked") != std::string::npos ||
                             line.find("| two parts") != std::string::npos ||
                             line.find("| two sequences") != std::string::npos;
      std::replace(names.begin(), names.end(), ' ', '|');
      const std::string order = Found(names, {}, Order);
      EXPECT_EQ(order.starts_with('!'), isRefused) << names;
      EXPECT_TRUE(isRefused || order.size() == names.size()) << names;
      ++examples;
    }
  }
  EXPECT_GT(examples, 10);
}

TEST(Sequence, NamesEveryFilmAndWhatIsLeftOut) {
  const animate::EachFilms each =
      animate::FindEach({"0.bmp", "cam1_0.png", "cam1_1.png", "cam2_0.png", "cam2_1.png",
                         "x1.9.png", "x1.11.png", "x1.2.png", "f1.png", "f2.png", "f1.jpeg",
                         "F2.JPG", "1.png", "2.png", "cam2_0.gif", "cam2_1.gif", "a.txt"},
                        {});
  std::string text;
  for (const animate::EachFilm& film : each.films) {
    text += film.findings.name + " " + std::to_string(film.findings.frames.size()) +
            (film.refusal.empty() ? ", " : "!, ");
  }
  EXPECT_EQ(text, "cam1 2, cam2 2, x 3!, png 2, cam2_gif 2, f 2, f_png 2, ");
  EXPECT_THAT(each.leftOut, testing::ElementsAre("0.bmp"));
  EXPECT_THAT(animate::FindSequence({"cam1_0.png", "cam1_1.png", "cam2_0.png", "a1.png"},
                                    {.wanted = "cam1_0.png"})
                  .leftOut,
              testing::ElementsAre("cam2_0.png", "a1.png"));
}

TEST(Sequence, FindsWhatIsMissingByTheStep) {
  const struct {
    const char* names;
    const char* missing;
  } kCases[] = {
      {"f0|f10|f20|f30", "by 10"},
      {"f1|f2|f3|f7", "by 1, 4 to 6 after 2"},
      {"s1_9|s1_10|s2_1|s2_2|s2_4|s2_5", "by 1, 3 after 3"},
      {"a_-2|a_-1|a_2", "by 1, 0 to 1 after 1"},
      {"p_0.05|p_0.1|p_0.15|p_0.3", "by 0.05, 0.2 to 0.25 after 2"},
      {"t0.1|t0.2|t0.30001", "no step"},
      {"t=0.1|t=0.25|t=0.5|t=1|t=1.5|t=10", "no step"},
      {"2024-02-28|2024-02-29|2024-03-01|2024-03-03", "by 86400, 2024-03-02 after 2"},
      {"2024-02_28|2024-02_29|2024-03_01|2024-03_03", "by 1, 2 after 2"},
      {"f_1_t0.5|f_2_t1.0|f_3_t1.5|f_5_t2.5", "by 0.5, 2 after 2"},
      {"20240305_115958|20240305_115959|20240305_120000|20240305_120002",
       "by 1, 2024-03-05 12:00:01 after 2"},
      {"20240305115958|20240305115959|20240305120000|20240305120002",
       "by 1, 2024-03-05 12:00:01 after 2"},
      {"10-59-58|10-59-59|11-00-00", "by 1"},
      {"9-59-58|9-59-59|10-00-00|10-00-02", "by 1, 1 after 2"},
      {"run2 10-59-58|run2 10-59-59|run2 11-00-01|run2 11-00-02", "by 1, 11:00:00 after 1"},
      {"01-10-58-1|01-10-59-1|01-11-00-1|01-11-02-1", "by 1, 1 after 2"},
      {"11h59m58|11h59m59|12h00m01|12h00m02", "by 1, 12:00:00 after 1"},
      {"2024-03-05 9.59.58|2024-03-05 9.59.59|2024-03-05 10.00.01|2024-03-05 10.00.02",
       "by 1, 2024-03-05 10:00:00 after 1"},
      {"2024-03-05_11.59.59.500|2024-03-05_12.00.00.000|2024-03-05_12.00.00.500|2024-03-05_12.00.01.500",
       "by 0.5, 2024-03-05 12:00:01 after 2"},
      {"20240305_115959.5|20240305_120000.0|20240305_120000.5|20240305_120001.5",
       "by 0.5, 2024-03-05 12:00:01 after 2"},
      {"2024-03-05_09-58_cam1|2024-03-05_09-59_cam1|2024-03-05_10-00_cam1|2024-03-05_10-02_cam1",
       "by 60, 2024-03-05 10:01:00 after 2"},
      {"2024-03-05_09-58|2024-03-05_09-59|2024-03-05_10-00|2024-03-05_10-02",
       "by 60, 2024-03-05 10:01:00 after 2"},
      {"2024-03-05 09.58|2024-03-05 09.59|2024-03-05 10.00|2024-03-05 10.02",
       "by 60, 2024-03-05 10:01:00 after 2"},
      // All that they are multiples of, unless more were missing than are there.
      {"f0|f2|f6|f12", "by 2, 4 after 1, 8 to 10 after 2"},
      {"f0|f4|f10|f20", "no step"},
      {"12345678901234567890123456788|12345678901234567890123456790", "no step"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Found(c.names, {}, Missing), c.missing) << c.names;
  }
  EXPECT_EQ(animate::FindSequence({"a1.png", "a01.png", "a2.png"}, {}).doubles,
            std::vector<std::size_t>{1});
}

TEST(Range, KeepsNumbersExactlyAndNamesThoseThatAreMissing) {
  const struct {
    const char* range;
    // Empty for wrong use.
    const char* kept;
    const char* missing;
    const char* names = "f-1|f_-1|f_0|f_1|f_2|f_4|f_10";
  } kCases[] = {
      {"1-4", "f_1|f_2|f_4", "3"},
      {"-1-10x5", "f_-1|f_4", "9"},
      {"2-", "f_2|f_4|f_10", "3 5-9"},
      {"-1", "f_-1|f_0|f_1", ""},
      {"-1-0", "f_-1|f_0", ""},
      {"2", "f_2", ""},
      {"12-13", "", "12-13"},
      {"1-3", "f_1|f_2", "3"},
      {"0.1-0.3x0.1", "t0.1|t0.2|t0.3", "", "t0.05|t0.1|t0.2|t0.25|t0.3"},
      {"4-1", "", "!"},
      {"1-4x0", "", "!"},
      {"1-4x", "", "!"},
      {"a", "", "!"},
      {"-4x2", "", "!"},
      {"1-", "", "!", "20240305|20240306"},
      {"0-1", "t0.1|t0.2|t0.5", "!", "t0.1|t0.2|t0.5"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Found(c.names, {},
                    [&](animate::Findings findings) {
                      std::string missing;
                      try {
                        for (const auto& some :
                             animate::FindMissing(findings, animate::ReadRange(c.range))) {
                          missing += (missing.empty() ? "" : " ") + some.first +
                                     (some.count == 1 ? "" : "-" + some.last);
                        }
                      } catch (const animate::Failure&) {
                        missing = "!";
                      }
                      try {
                        animate::KeepRange(findings, animate::ReadRange(c.range));
                      } catch (const animate::Failure& failure) {
                        EXPECT_EQ(failure.Status(), animate::ExitStatus::kWrongUse);
                        findings.frames.clear();
                      }
                      return Order(findings) + "; " + missing;
                    }),
              std::string(c.kept) + "; " + c.missing)
        << c.range;
  }
}

TEST(NamePattern, MatchesWholeNames) {
  const struct {
    const char* pattern;
    const char* fits;
    const char* others;
  } kCases[] = {
      {"cam1_*.png", "CAM1_7.PNG", "cam12_7.png"},
      {"f_%04d.png", "f_0007.png", "f_007.png"},
      {"f_%d.png", "f_-7.png", "f_x.png"},
      {"f_####.png", "f_12345.png", "f_123.png"},
      {"take#1_*.png", "take#1_7.png", "take_7.png"},
      {"f?.png", "f\u00E9.png", "f12.png"},
      {"*a*b.png", "aabab.png", "ba.png"},
  };
  for (const auto& c : kCases) {
    EXPECT_TRUE(animate::IsNamePattern(c.pattern));
    EXPECT_TRUE(animate::MatchesPattern(c.fits, c.pattern)) << c.pattern;
    EXPECT_FALSE(animate::MatchesPattern(c.others, c.pattern)) << c.pattern;
  }
  EXPECT_FALSE(animate::IsNamePattern("100%_[old].png"));
}

TEST(Sequence, IsThatOfTheLiteralRules) {
  std::mt19937 random(1);
  for (int set = 0; set < 1000; ++set) {
    std::string bytes(60, ' ');
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
    const char marks = "   dw"[random() % 5];
    const Words names = NamesOfBytes(bytes);
    std::string all;
    for (const std::string& name : names) {
      all += name.substr(0, name.size() - 4) + "|";
    }
    const SequenceOptions options = {.numbers = marks == 'd'   ? animate::Numbers::kDecimal
                                                : marks == 'w' ? animate::Numbers::kWhole
                                                               : animate::Numbers::kAuto};
    std::string expected;
    for (const std::string& name : OrderLiterally(names, marks)) {
      expected += (expected.empty() ? "" : "|") + name.substr(0, name.size() - 4);
    }
    const std::string found = Found(all, options, Order);
    ASSERT_EQ(found.starts_with('!') ? "" : found, expected) << all << found;
  }
}

}  // namespace
