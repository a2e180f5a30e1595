#include "text/cstring_array.h"

#include <gtest/gtest.h>

#include <limits>

#include "text/number.h"

namespace {

TEST(Text, NumbersAreReadLeniently) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  const struct {
    const char* text;
    int number;
    float decimal;
  } kCases[] = {
      {" \t-5x", -5, -5},
      {"+7", 7, 7},
      {"", 0, 0},
      {"- 3", 0, 0},
      {"0.5x", 0, 0.5},
      {".5e1 ", 0, 5},
      {"inf", 0, 0},
      {"-nan", 0, 0},
      {"0x10", 0, 0},
      {"1e39", 1, kInfinite},
      {"-1e400", -1, -kInfinite},
      {"2147483648", kHighest, 2147483648.0F},
      {"-99999999999999999999999", kLowest, -1e23F},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(ReadInteger(c.text), c.number) << c.text;
    EXPECT_EQ(ReadFloat(c.text), c.decimal) << c.text;
  }
}

TEST(Text, ABadIndexIsRefused) {
  EXPECT_THROW(CStringArray().GetAt(-1), CInvalidArgException);
  EXPECT_THROW(CStringArray().GetAt(0), CInvalidArgException);
}

}  // namespace
