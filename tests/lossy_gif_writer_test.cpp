#include "gif/lossy_gif_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

#include "gif/film_colours.h"
#include "gif/nearest_colour.h"
#include "tests/reference/literal_gif_player.h"
#include "tests/support/animation_of_numbers.h"

namespace {

using Picture = std::vector<Colour>;
using Film = std::vector<Animation::Picture>;

Colour ToColour(GifColour colour) {
  const auto part = [&](int shift) { return static_cast<std::uint8_t>(colour >> shift); };
  return {part(0), part(8), part(16), part(24)};
}

// The bytes, and what is shown at each picture's end.
struct Written {
  std::size_t bytes = 0;
  std::vector<Picture> shown;
};

Written Write(const Film& film, int width, float bitPrice) {
  FilmColours colours(true);
  for (const auto& [picture, delay] : film) {
    colours.Add(picture);
  }
  std::string file;
  LossyGifWriter writer(width, static_cast<int>(film[0].pixels.size()) / width, colours, bitPrice,
                        [&](std::string_view bytes) { file += bytes; });
  for (const auto& [picture, delay] : film) {
    writer.Add(picture, delay);
  }
  writer.Finish();
  Written written = {file.size(), {}};
  const GifShown shown = LiteralGifPlayer::Play(file);
  std::size_t at = 0;
  long until = shown[0].second;
  long time = 0;
  for (const auto& [picture, delay] : film) {
    for (time += delay; until < time && at + 1 < shown.size();) {
      until += shown[++at].second;
    }
    Picture& pixels = written.shown.emplace_back();
    for (const GifColour colour : shown[at].first) {
      pixels.push_back(ToColour(colour));
    }
  }
  EXPECT_TRUE(until == time && at + 1 == shown.size()) << "the time is another";
  return written;
}

TEST(LossyGifWriter, LosesNothingOrNoMoreThanTheWorthOfACode) {
  std::mt19937 random(7);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  for (int round = 0; round < 200; ++round) {
    FilmColours colours(true);
    // Large ones are worked on in halves.
    const int size = round % 16 == 0 ? 300 : 40;
    const Animation animation = AnimationOfNumbers(below, size, size);
    const Film& film = animation.pictures;
    for (const auto& [picture, delay] : film) {
      colours.Add(picture);
    }
    const float bitPrice = colours.AreFew() ? static_cast<float>(below(3) * 50) : 7;
    NearestColour least(colours.TableFor(bitPrice));
    const Written written = Write(film, animation.width, bitPrice);
    for (std::size_t index = 0; index < film.size(); ++index) {
      for (std::size_t place = 0; place < film[index].pixels.size(); ++place) {
        const Colour& wanted = film[index].pixels[place];
        const Colour& shown = written.shown[index][place];
        ASSERT_EQ(shown.alpha, wanted.alpha) << round;
        if (wanted.alpha != 0 && colours.AreFew()) {
          const int more = ColourDistance(shown, wanted) - least.Of(wanted).distance;
          ASSERT_LE(static_cast<float>(more), 14 * bitPrice) << round;
        }
      }
    }
  }
}

// A slope under noise, which moves or stands.
Film NoisySlope(int pictures, bool moves) {
  std::mt19937 random(7);
  Film film;
  for (int number = 0; number < pictures; ++number) {
    Picture picture;
    for (int place = 0; place < 64 * 64; ++place) {
      const int level = place % 64 * 2 + place / 64 + number * 5 + static_cast<int>(random() % 8);
      const auto value = static_cast<std::uint8_t>(level);
      picture.push_back(
          {value, static_cast<std::uint8_t>(255 - level),
           static_cast<std::uint8_t>(place / 64 * 3 + static_cast<int>(random() % 8))});
    }
    film.push_back({moves || film.empty() ? picture : film[0].pixels, 8});
  }
  return film;
}

double ErrorOf(const Picture& shown, const Picture& wanted) {
  double error = 0;
  for (std::size_t place = 0; place < shown.size(); ++place) {
    error += ColourDistance(shown[place], wanted[place]);
  }
  return error;
}

TEST(LossyGifWriter, MakesSmallerFilmsOfLessQuality) {
  const Film film = NoisySlope(6, true);
  std::size_t bytesBefore = std::numeric_limits<std::size_t>::max();
  double errorBefore = 0;
  for (const int quality : {100, 90, 80, 60, 40, 20, 1}) {
    const Written written = Write(film, 64, BitPriceOf(quality));
    const double error = ErrorOf(written.shown.back(), film.back().pixels);
    EXPECT_LT(written.bytes, bytesBefore) << quality;
    EXPECT_GT(error, errorBefore) << quality;
    bytesBefore = written.bytes;
    errorBefore = error;
  }
}

TEST(LossyGifWriter, ShowsMoreColoursOfAPictureThatStands) {
  const Film film = NoisySlope(8, false);
  const Written written = Write(film, 64, 0);
  EXPECT_LT(ErrorOf(written.shown.back(), film[0].pixels),
            ErrorOf(written.shown.front(), film[0].pixels) / 2);
}

TEST(LossyGifWriter, LosesNoColourOfASinglePixelToASmallTable) {
  Picture first;
  first.reserve(std::size_t{128} * 128);
  for (int place = 0; place < 128 * 128; ++place) {
    first.push_back({0, static_cast<std::uint8_t>(place % 150), 255});
  }
  Picture second(first.size(), Colour{200, 0, 0});
  first.back() = {200, 2, 0};
  second.back() = {200, 1, 0};
  const Film film = {{first, 8}, {second, 8}};
  EXPECT_EQ(ErrorOf(Write(film, 128, 0).shown.back(), second), 0);
}

TEST(LossyGifWriter, GivesFramesOfFewNewColoursSmallTables) {
  Film film;
  for (int number = 0; number < 40; ++number) {
    Picture picture;
    picture.reserve(std::size_t{64} * 64);
    for (int place = 0; place < 64 * 64; ++place) {
      if (place < 32 * 64) {
        // Of many colours, and stands.
        picture.push_back({200, static_cast<std::uint8_t>(place % 150), 255});
        continue;
      }
      const auto bar = static_cast<std::uint8_t>(place % 64 / 8);
      picture.push_back(
          {static_cast<std::uint8_t>(number * 6), static_cast<std::uint8_t>(bar * 30), bar});
    }
    film.push_back({picture, 8});
  }
  const Written written = Write(film, 64, 0);
  // Less than large tables alone would take.
  EXPECT_LT(written.bytes, film.size() * 256 * 3);
  EXPECT_EQ(ErrorOf(written.shown.back(), film.back().pixels), 0);
}

TEST(LossyGifWriter, CompressesFewColoursAsWellAsWhatLosesNothing) {
  // A curve that moves on white, and bars whose shades do.
  const auto curve = [](int x, int y, int number) {
    const bool isNear = std::abs(y - 48 - 30 * std::sin(x / 11.0 + number / 3.0)) < 2;
    return isNear ? Colour{200, 30, 30} : Colour{255, 255, 255};
  };
  const auto bars = [](int x, int y, int number) {
    const auto shade = static_cast<std::uint8_t>(x / 12 * 20 + number * 4);
    return y < 64 ? Colour{shade, 40, 90} : Colour{40, shade, 255};
  };
  const struct {
    std::function<Colour(int, int, int)> drawn;
    double most;
  } kCases[] = {{curve, 1}, {bars, 1.05}};
  for (const auto& [drawn, most] : kCases) {
    Film film;
    for (int number = 0; number < 12; ++number) {
      Picture picture;
      picture.reserve(std::size_t{128} * 96);
      for (int place = 0; place < 128 * 96; ++place) {
        picture.push_back(drawn(place % 128, place / 128, number));
      }
      film.push_back({picture, 8});
    }
    const auto exact = static_cast<double>(WrittenExactly({128, film}).size());
    EXPECT_LE(static_cast<double>(Write(film, 128, 0).bytes), exact * most);
    EXPECT_LE(static_cast<double>(Write(film, 128, 0.5F).bytes), exact * most);
  }
}

// Greys that go on by a step in each picture: all pixels as one, or each from a step of its own;
// and a pixel that stands.
Film Steps(bool asOne, const Colour& standing) {
  std::mt19937 random(7);
  std::vector<unsigned> starts(std::size_t{64} * 64);
  for (unsigned& start : starts) {
    start = asOne ? 0 : static_cast<unsigned>(random() % 16);
  }
  Film film;
  for (unsigned number = 0; number < 32; ++number) {
    Picture picture;
    for (const unsigned start : starts) {
      const auto level = static_cast<std::uint8_t>((start + number) % 16 * 6);
      picture.push_back({level, level, level});
    }
    picture.front() = standing;
    film.push_back({picture, 8});
  }
  return film;
}

TEST(FilmColours, FewAreMadeFewerWherePixelsThenChangeMoreRarely) {
  const struct {
    bool asOne;
    float bitPrice;
    Colour standing;
    std::size_t least, most;
  } kCases[] = {
      {false, 0, {0, 0, 0}, 16, 16},
      {false, 20, {0, 0, 0}, 4, 8},
      {true, 20, {0, 0, 0}, 16, 16},
      // Rare, and like none of the others.
      {false, 20, {45, 0, 90}, 10, 17},
  };
  for (const auto& c : kCases) {
    FilmColours colours(true);
    for (const auto& [picture, delay] : Steps(c.asOne, c.standing)) {
      colours.Add(picture);
    }
    const std::vector<Colour> table = colours.TableFor(c.bitPrice);
    EXPECT_TRUE(table.size() >= c.least && table.size() <= c.most) << table.size();
    NearestColour nearest(table);
    for (const Colour& colour : colours.Table()) {
      EXPECT_LE(static_cast<float>(nearest.Of(colour).distance), 14 * c.bitPrice);
    }
  }
}

TEST(LossyGifWriter, EncodesPartsAsOneImage) {
  std::mt19937 random(7);
  for (const int bits : {2, 5, 8}) {
    const int count = (1 << bits) - 1;
    std::vector<Colour> table;
    for (int entry = 0; entry < count; ++entry) {
      const auto value = static_cast<std::uint8_t>(entry);
      table.push_back({value, value, value});
    }
    const ColourNeighbours colours(table);
    std::string wanted;
    std::vector<LossyPixel> pixels;
    for (int left = 1 << (bits + 8); left > 0; --left) {
      const auto entry = static_cast<std::uint8_t>(random() % static_cast<unsigned>(count));
      wanted += static_cast<char>(entry);
      pixels.push_back({table[entry], 0, LossyPixel::kNever, 1, entry, true});
    }
    const LossyData data = EncodeLossily({pixels, &colours, count, bits, 0}, 3);
    EXPECT_EQ(LiteralGifPlayer::Pixels(data.bytes), wanted) << bits;
    EXPECT_EQ(std::string(data.entries.begin(), data.entries.end()), wanted) << bits;
  }
}

TEST(NearestColour, IsTheFirstOfTheNearest) {
  std::mt19937 random(7);
  const auto colour = [&](unsigned limit) {
    const auto part = [&] { return static_cast<std::uint8_t>(random() % limit); };
    return Colour{part(), part(), part()};
  };
  for (const unsigned limit : {256U, 20U, 2U}) {
    Picture table;
    for (int entry = 0; entry < 256; ++entry) {
      table.push_back(colour(limit));
    }
    NearestColour nearest(table);
    for (int round = 0; round < 20000; ++round) {
      const Colour wanted = colour(round % 2 == 0 ? limit : 256);
      const auto expected = std::min_element(table.begin(), table.end(), [&](auto& a, auto& b) {
        return ColourDistance(a, wanted) < ColourDistance(b, wanted);
      });
      ASSERT_EQ(nearest.Of(wanted).entry, expected - table.begin());
    }
  }
}

}  // namespace
