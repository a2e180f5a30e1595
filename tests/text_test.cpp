#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "app/win_app.h"
#include "text/number.h"

namespace {

TEST(Text, NumbersAreReadLeniently) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  const struct {
    const char* text;
    int number;
  } kCases[] = {{"25", 25},
                {" \t-5x", -5},
                {"+7", 7},
                {"x7", 0},
                {"", 0},
                {"- 3", 0},
                {"007", 7},
                {"2147483648", kHighest},
                {"-2147483649", kLowest},
                {"99999999999999999999999", kHighest}};
  for (const auto& c : kCases) {
    EXPECT_EQ(ReadInteger(c.text), c.number) << c.text;
  }
  EXPECT_EQ(ReadFloat("0.5x"), 0.5F);
  EXPECT_EQ(ReadFloat("junk"), 0.0F);
  EXPECT_EQ(ReadFloat("1e39"), std::numeric_limits<float>::infinity());
  EXPECT_EQ(ReadFloat("-1e400"), -std::numeric_limits<float>::infinity());
}

TEST(Framework, StartsWithAnApplicationObjectAndAModuleOnly) {
  const int module = 0;
  EXPECT_EQ(AfxWinInit(&module, nullptr, "", 0), 0);
  const CWinApp application;
  EXPECT_EQ(AfxWinInit(&module, nullptr, "", 0), 1);
  EXPECT_EQ(AfxWinInit(nullptr, nullptr, "", 0), 0);
}

}  // namespace
