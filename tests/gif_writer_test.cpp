#include "gif/gif_writer.h"

#include <gmock/gmock.h>

#include <random>

#include "gif/few_colours.h"
#include "gif/lzw_encoder.h"
#include "gif/runs_to_draw.h"
#include "tests/reference/literal_gif_player.h"
#include "tests/support/animation_of_numbers.h"
#include "tests/support/gif_builder.h"

namespace {

constexpr Colour kRed = {255, 0, 0};
constexpr Colour kBlue = {0, 0, 255};
constexpr Colour kFree = {0, 0, 0, 0};

TEST(GifWriter, ShowsThePicturesItIsGiven) {
  std::mt19937 random(7);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  int written = 0;
  for (int round = 0; round < 330; ++round) {
    const int most = round % 30 == 0 ? 300 : 1 + round % 30;
    const Animation animation = AnimationOfNumbers(below, most, most);
    if (const std::string file = WrittenExactly(animation); !file.empty()) {
      ASSERT_EQ(LiteralGifPlayer::Play(file), LiteralGifPlayer::ShownBy(animation)) << round;
      ++written;
    }
  }
  // The others have too many colours.
  EXPECT_GT(written, 300);
}

TEST(GifWriter, DrawsNoMoreThanItMust) {
  using Pictures = std::vector<Animation::Picture>;
  const std::vector<Colour> some = {kRed, kRed, kRed, kRed};
  const std::vector<Colour> other = {kRed, kBlue, kBlue, kRed};
  const std::vector<Colour> holes = {kRed, kFree, kFree, kRed};
  // Expected of each image: left, width, disposal and delay.
  const std::pair<Pictures, std::vector<std::array<int, 4>>> cases[] = {
      {{{some, 3}, {some, 4}, {other, 5}}, {{0, 4, 1, 7}, {1, 2, 1, 5}}},
      {{{some, 65536}}, {{0, 4, 1, 65534}, {0, 1, 1, 2}}},
      {{{some, 2}, {other, 2}, {some, 2}}, {{0, 4, 1, 2}, {1, 2, 3, 2}, {0, 1, 1, 2}}},
      {{{some, 2}, {other, 2}, {holes, 2}}, {{0, 4, 1, 2}, {1, 2, 2, 2}, {0, 1, 1, 2}}},
  };
  for (const auto& [pictures, expected] : cases) {
    std::vector<std::array<int, 4>> found;
    for (const GifImage& image : ReadGifBlocks(WrittenExactly({4, pictures})).images) {
      // Otherwise some programs clear it to a colour.
      EXPECT_TRUE(image.control.transparent.has_value());
      found.push_back({image.left, image.width, image.control.disposal, image.control.delay});
    }
    EXPECT_EQ(found, expected);
  }
}

TEST(FewColours, HaveTheEntriesOfTheFirstPictureByUseAndThenAsTheyCome) {
  const auto grey = [](int value) {
    const auto level = static_cast<std::uint8_t>(value);
    return Colour{level, level, level};
  };
  FewColours colours;
  EXPECT_EQ(colours.EntriesOf(std::vector{kRed, kBlue, kFree, kBlue}), (GifScreen{2, 1, 0, 1}));
  EXPECT_EQ(colours.EntriesOf(std::vector{grey(9), kRed, kFree, grey(8)}), (GifScreen{3, 2, 0, 4}));
  for (int value = 10; value < 10 + 251; ++value) {
    EXPECT_TRUE(colours.EntriesOf(std::vector{kRed, grey(value % 256)}));
  }
  EXPECT_EQ(colours.Table().size(), 256U);
  EXPECT_TRUE(colours.EntriesOf(std::vector{grey(200)}) && colours.AreAll());
  EXPECT_FALSE(colours.EntriesOf(std::vector{Colour{1, 2, 3}}) || colours.AreAll());
}

TEST(RunsToDraw, ChangeTheColourNoMoreOftenThanTransparentOnes) {
  // Which pixels may stay ("s"), and which of them are drawn ("d").
  const struct {
    std::string colours, stays, drawn;
  } kCases[] = {
      {"wwwcwww", "sss-sss", "ddd-ddd"}, {"aabb", "ssss", "dddd"}, {"abcd", "ssss", "ssss"},
      {"xaax", "-ss-", "-dd-"},          {"xabx", "-ss-", "-ss-"}, {"abc", "sss", "ddd"},
      {"xabcddd", "sss-sss", "sss-ddd"}, {"ab", "--", "--"},
  };
  for (const auto& c : kCases) {
    std::string found = c.stays;
    ForEachRunToDraw(
        0, found.size(), [&](std::size_t place) { return c.stays[place] == 's'; },
        [&](std::size_t place) { return c.colours[place] != c.colours[place - 1]; },
        [&](std::size_t begin, std::size_t end) {
          found.replace(begin, end - begin, end - begin, 'd');
        });
    EXPECT_EQ(found, c.drawn) << c.colours;
  }
}

TEST(LzwEncoder, TakesOnlyWhatPixelsMayBe) {
  std::mt19937 random(7);
  for (unsigned colours = 1; colours < 5; ++colours) {
    std::vector<std::uint8_t> one;
    std::vector<std::uint8_t> other;
    while (one.size() < 20000) {
      one.push_back(static_cast<std::uint8_t>(random() % 32 == 0 ? random() % colours : 0));
      other.push_back(static_cast<std::uint8_t>(random() % 2 == 0 ? 7 : one.back()));
      if (random() % 2 == 0) {
        std::swap(one.back(), other.back());
      }
    }
    const std::string pixels = LiteralGifPlayer::Pixels(LzwEncoder().Encode({one, other, 3}));
    ASSERT_EQ(pixels.size(), one.size());
    for (std::size_t place = 0; place < one.size(); ++place) {
      ASSERT_THAT((std::array{one[place], other[place]}),
                  testing::Contains(static_cast<unsigned char>(pixels[place])))
          << colours << ", " << place;
    }
  }
}

TEST(LzwEncoder, IsShorterThanAPlainOne) {
  std::mt19937 random(7);
  const auto noise = [&](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
  // Nothing, noise of several kinds one below the other, a slope, and lines that come again. The
  // parts were measured, rounded up.
  const std::pair<double, std::function<unsigned(unsigned, unsigned)>> kinds[] = {
      {1.01, [](unsigned, unsigned) { return 5U; }},
      {0.96, [&](unsigned, unsigned y) { return y / 64 * 32 + noise(y % 128 < 64 ? 32 : 4); }},
      {0.9, [](unsigned x, unsigned y) { return (x * 3 + y * 2) / 7 % 200; }},
      {0.82,
       [&](unsigned x, unsigned y) { return (x * x + y % 8 * 31) / 64 % 16 + noise(20) / 19; }},
  };
  for (const auto& [part, kind] : kinds) {
    std::string pixels;
    for (unsigned place = 0; place < 65536; ++place) {
      pixels += static_cast<char>(kind(place % 256, place / 256));
    }
    const std::vector<std::uint8_t> entries(pixels.begin(), pixels.end());
    const GifBlocks plain = ReadGifBlocks(GifOfPixels(256, 256, 8, pixels));
    const std::string data = LzwEncoder().Encode({entries, entries});
    EXPECT_LT(static_cast<double>(data.size()),
              part * static_cast<double>(plain.images[0].data.size));
  }
}

}  // namespace
