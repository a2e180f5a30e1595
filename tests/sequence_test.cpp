// Which images are a sequence, in which order, and what is missing: on names alone.
#include "sequence/sequence.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <tuple>

#include "film/failure.h"

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

Words Split(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

TEST(Sequence, OrdersByNumbersAndFindsWhatIsMissing) {
  const std::string nines(29, '9');
  const struct {
    std::string names, order;
    std::vector<std::size_t> gaps;
    std::size_t doubles, leftOut;
  } kCases[] = {
      {"10.png 9.png 8.png", "8.png 9.png 10.png", {}, 0, 0},
      {"f0.png f30.png f10.png f20.png", "f0.png f10.png f20.png f30.png", {}, 0, 0},
      {"f1.png f2.png f3.png f7.png", "f1.png f2.png f3.png f7.png", {3}, 0, 0},
      {"1_9.png 1_10.png 2_1.png 2_2.png 2_4.png 2_5.png",
       "1_9.png 1_10.png 2_1.png 2_2.png 2_4.png 2_5.png",
       {1},
       0,
       0},
      {"A2.JPG a1.jpeg a3.jpg a.jpg b1.jpg", "a1.jpeg A2.JPG a3.jpg", {}, 0, 2},
      {"a1.png a01.png a2.png", "a01.png a1.png a2.png", {}, 1, 0},
      {nines + "1.tif " + nines + "0.tiff", nines + "0.tiff " + nines + "1.tif", {}, 0, 0},
      {"x0.25.png x1.00.png x0.50.png x.txt", "x0.25.png x0.50.png x1.00.png", {}, 0, 0},
      {"11-00-00.png 10-59-58.png 10-59-59.png",
       "10-59-58.png 10-59-59.png 11-00-00.png",
       {},
       0,
       0},
  };
  for (const auto& c : kCases) {
    const Words names = Split(c.names);
    const animate::Findings found = animate::FindSequence({names.begin(), names.end()}, {});
    Words order;
    for (const animate::NumberedName& frame : found.sequence) {
      order.push_back(frame.name.string());
    }
    EXPECT_EQ(order, Split(c.order));
    std::vector<std::size_t> gaps;
    for (const animate::Gap& gap : found.gaps) {
      gaps.push_back(gap.count);
    }
    EXPECT_EQ(std::tuple(gaps, found.doubles.size(), found.leftOut.size()),
              std::tuple(c.gaps, c.doubles, c.leftOut))
        << c.names;
  }
}

TEST(Sequence, MeansTheFrameThatIsNamed) {
  const std::vector<fs::path> names = {"a1.png", "a2.png", "b1.png", "b2.png", "logo.png"};
  EXPECT_EQ(animate::FindSequence(names, "b2.png").sequence.front().name, "b1.png");
  EXPECT_THROW(animate::FindSequence(names, std::nullopt), animate::Failure);
  EXPECT_THROW(animate::FindSequence(names, "logo.png"), animate::Failure);
  EXPECT_THROW(animate::FindSequence({"a1.png"}, std::nullopt), animate::Failure);
  EXPECT_THROW(animate::FindSequence({}, std::nullopt), animate::Failure);
}

}  // namespace
