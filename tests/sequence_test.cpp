// Which images are a sequence, in which order, and what is missing: on names alone.
#include "sequence/sequence.h"

#include <gtest/gtest.h>

#include "film/failure.h"

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

TEST(Sequence, OrdersByNumbersAndFindsWhatIsMissing) {
  const std::string longOne = "12345678901234567890123456789";
  const struct {
    Words names;
    Words order;
    std::vector<std::size_t> gaps;
    std::size_t doubles;
    std::size_t leftOut;
  } kCases[] = {
      {{"10.png", "9.png", "8.png"}, {"8.png", "9.png", "10.png"}, {}, 0, 0},
      {{"f0.png", "f30.png", "f10.png", "f20.png"},
       {"f0.png", "f10.png", "f20.png", "f30.png"},
       {},
       0,
       0},
      {{"f1.png", "f2.png", "f3.png", "f7.png"},
       {"f1.png", "f2.png", "f3.png", "f7.png"},
       {3},
       0,
       0},
      {{"s1_9.png", "s1_10.png", "s2_1.png", "s2_2.png", "s2_4.png", "s2_5.png"},
       {"s1_9.png", "s1_10.png", "s2_1.png", "s2_2.png", "s2_4.png", "s2_5.png"},
       {1},
       0,
       0},
      {{"A2.JPG", "a1.jpeg", "a3.jpg", "a.jpg", "b1.jpg"},
       {"a1.jpeg", "A2.JPG", "a3.jpg"},
       {},
       0,
       2},
      {{"a1.png", "a01.png", "a2.png"}, {"a01.png", "a1.png", "a2.png"}, {}, 1, 0},
      {{longOne + "1.tif", longOne + "0.tiff", "9" + longOne + "0.tif"},
       {longOne + "0.tiff", longOne + "1.tif", "9" + longOne + "0.tif"},
       {},
       0,
       0},
      {{"x0.25.png", "x0.50.png", "x1.00.png", "x.txt"},
       {"x0.25.png", "x0.50.png", "x1.00.png"},
       {},
       0,
       0},
      {{"10-59-58.png", "10-59-59.png", "11-00-00.png"},
       {"10-59-58.png", "10-59-59.png", "11-00-00.png"},
       {},
       0,
       0},
  };
  for (const auto& c : kCases) {
    const animate::Findings found =
        animate::FindSequence({c.names.begin(), c.names.end()}, std::nullopt);
    Words order;
    for (const animate::NumberedName& frame : found.sequence) {
      order.push_back(frame.name.string());
    }
    EXPECT_EQ(order, c.order);
    std::vector<std::size_t> gaps;
    for (const animate::Gap& gap : found.gaps) {
      gaps.push_back(gap.count);
    }
    EXPECT_EQ(gaps, c.gaps) << c.names[0];
    EXPECT_EQ(found.doubles.size(), c.doubles) << c.names[0];
    EXPECT_EQ(found.leftOut.size(), c.leftOut) << c.names[0];
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
