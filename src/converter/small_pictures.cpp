#include "converter/small_pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <utility>

#include "converter/planned_picture.h"
#include "converter/recipe.h"
#include "film/failure.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "gif/lossy_gif_writer.h"
#include "platform/input_file.h"

namespace animate {
namespace {

// Cells that are smaller would show what every coder loses.
constexpr int kSmallestCell = 16;
constexpr int kMostCells = 32;

// From which difference on two planned pictures have to be told apart.
constexpr int kTellable = 16;

// What coders may lose, of 255: in the mean of a cell, in that of a whole picture, and as a part of
// the way to a neighbour's picture that differs by so much.
struct Allowance {
  // From which quality on, and of pictures how wide and how high at least.
  int quality = 1;
  int side = 1;
  int cell = 0;
  int mean = 0;
  double way = 0;
  int tellable = kTellable;
};

// Measured with noise, hard edges, thin lines, flat and smooth colours in every format, and each
// half as much again at least. Coders lose more of small pictures than of large ones.
constexpr Allowance kAllowances[] = {
    {80, 64, 20, 5, 0.5},  {80, 1, 20, 8, 0.5},  {60, 64, 24, 8, 0.5},   {60, 1, 32, 12, 0.6},
    {30, 64, 48, 14, 0.5}, {30, 1, 48, 24, 0.9}, {1, 64, 160, 120, 0.9}, {1, 1, 192, 170, 2},
};
// Palettes lose rare colours and keep the rest. A GIF of little quality leaves pixels as they were
// where that is near enough, so its pictures lag behind the planned ones.
constexpr Allowance kWithPalette = {50, 1, 48, 8, 0.5};
constexpr double kWayOfLagging = 0.9;
constexpr Allowance kExact = {1, 1, 4, 4, 0.5};

// Of a few pixels, whose colours are stored in halves, little is left.
constexpr Allowance kOfFewPixels = {1, 1, 64, 64, 2};

// By how much a pixel of a GIF may be left behind.
int LagAt(int quality) {
  return static_cast<int>(std::sqrt(kBitsOfCode * BitPriceOf(quality)));
}

Allowance AllowanceOf(const Film& film) {
  const int side = std::min(film.size.width, film.size.height);
  if (!film.format->hasQuality) {
    return kExact;
  }
  const bool hasPalette = film.format->extension == "gif";
  if (side < kSmallestCell && !hasPalette) {
    return kOfFewPixels;
  }
  Allowance found = *std::find_if(
      std::begin(kAllowances), std::end(kAllowances),
      [&](const Allowance& one) { return film.quality >= one.quality && side >= one.side; });
  if (hasPalette) {
    found.cell = std::max(found.cell, kWithPalette.cell);
    found.mean = std::max(found.mean, kWithPalette.mean);
    if (film.quality < kWithPalette.quality) {
      found.way = std::max(found.way, kWayOfLagging);
      found.tellable = std::max(found.tellable, LagAt(film.quality));
    }
  }
  return found;
}

// Of one cell alone the converter makes a wrong mean.
constexpr int kLeastCells = 2;

constexpr std::size_t kColours = 3;

int Cells(int side) {
  return std::clamp(side / kSmallestCell, kLeastCells, kMostCells);
}

std::string MeansOfCells(const Film& film) {
  return ScaleFilter({Cells(film.size.width), Cells(film.size.height)}, "area");
}

int Value(char byte) {
  return static_cast<unsigned char>(byte);
}

// The mean of a picture, as a picture of one cell.
std::string Mean(const std::string& picture) {
  std::array<int, kColours> sums = {};
  for (std::size_t place = 0; place < picture.size(); ++place) {
    sums.at(place % kColours) += Value(picture[place]);
  }
  std::string mean;
  for (const int sum : sums) {
    mean += static_cast<char>(sum * static_cast<int>(kColours) / static_cast<int>(picture.size()));
  }
  return mean;
}

// A file of so many small pictures.
class SmallPictures {
 public:
  SmallPictures(const Film& film, const std::filesystem::path& path, std::size_t count)
      : file_(OrFail(platform::InputFile::Open(path), kUnreadable)),
        size_(kColours * static_cast<std::size_t>(Cells(film.size.width)) *
              static_cast<std::size_t>(Cells(film.size.height))),
        hasCells_(std::min(film.size.width, film.size.height) >= kSmallestCell) {
    if (count == 0 || file_.Size() != count * size_) {
      throw Failure("the finished file does not show as many pictures as were planned");
    }
  }

  // That of a picture; one of few pixels is a single cell.
  std::string At(std::size_t number) const {
    std::string picture = file_.Read(number * size_, size_);
    if (picture.size() != size_) {
      throw Failure(kUnreadable);
    }
    return hasCells_ ? picture : Mean(picture);
  }

 private:
  static constexpr char kUnreadable[] = "the small pictures cannot be read";

  platform::InputFile file_;
  std::size_t size_;
  bool hasCells_;
};

int LargestDifference(const std::string& planned, const std::string& seen) {
  int largest = 0;
  for (std::size_t place = 0; place < planned.size(); ++place) {
    largest = std::max(largest, std::abs(Value(planned[place]) - Value(seen[place])));
  }
  return largest;
}

// Whether a picture is rather another planned one, if there is one that can be told from its own:
// on the way from this to that it has come farther than is allowed.
bool IsRather(const std::string& other, const std::string& own, const std::string& seen,
              const Allowance& allowance) {
  if (other.empty() || LargestDifference(own, other) < allowance.tellable) {
    return false;
  }
  double along = 0;
  double whole = 0;
  for (std::size_t place = 0; place < own.size(); ++place) {
    const int way = Value(other[place]) - Value(own[place]);
    along += way * (Value(seen[place]) - Value(own[place]));
    whole += way * way;
  }
  return along > whole * allowance.way;
}

[[noreturn]] void Refuse(const Film& film, std::size_t number, const std::string& what,
                         int difference) {
  throw Failure(what + " in place of " + Quoted(film.frames[film.shown[number]].path.filename()) +
                " (a colour differs by " + std::to_string(difference) + " of 255)");
}

}  // namespace

std::vector<Pair> InOrder(std::size_t count) {
  std::vector<Pair> pairs(count);
  for (std::size_t number = 0; number < count; ++number) {
    pairs[number] = {number, number};
  }
  return pairs;
}

std::string PlannedInSmall(const Film& film) {
  return (film.freePixels == Film::FreePixels::kKept ? "format=rgba" + LaidOn(film.background)
                                                     : std::string("format=rgb24")) +
         "," + MeansOfCells(film) + ",format=rgb24";
}

std::string SeenInSmall(const Film& film) {
  const std::string back = ColoursBack(film);
  if (back.empty()) {
    return PlannedInSmall(film);
  }
  if (film.freePixels == Film::FreePixels::kKept) {
    return back + "," + PlannedInSmall(film);
  }
  // Brought back in small: that is cheap, and the means of what a coder let run over the ends of
  // the range stay right.
  return MeansOfCells(film) + ",format=yuv444p," + back + ",format=rgb24";
}

Likeness ComparePictures(const Film& film, const std::filesystem::path& planned,
                         const std::filesystem::path& seen, const std::vector<Pair>& pairs,
                         const std::string& name) {
  const Pair last = pairs.empty() ? Pair() : pairs.back();
  const SmallPictures plannedOnes(film, planned, last.planned + 1);
  const SmallPictures seenOnes(film, seen, last.seen + 1);
  const Allowance allowance = AllowanceOf(film);
  const auto plannedAt = [&](std::size_t number) {
    return number < film.shown.size() ? plannedOnes.At(number) : std::string();
  };
  Likeness worst;
  std::string before;
  std::string own = plannedAt(0);
  std::string after = plannedAt(1);
  std::size_t number = 0;
  for (const Pair& pair : pairs) {
    StopIfInterrupted();
    for (; number < pair.planned; ++number) {
      before = std::exchange(own, std::exchange(after, plannedAt(number + 2)));
    }
    const std::string found = seenOnes.At(pair.seen);
    const int difference = LargestDifference(own, found);
    if (difference > allowance.cell || LargestDifference(Mean(own), Mean(found)) > allowance.mean) {
      Refuse(film, number, "the finished " + name + " shows another picture", difference);
    }
    if (IsRather(before, own, found, allowance) || IsRather(after, own, found, allowance)) {
      Refuse(film, number, "the finished " + name + " shows a neighbour's picture", difference);
    }
    if (difference > worst.difference) {
      worst.difference = difference;
      worst.frame = film.shown[number];
    }
    for (const char value : own) {
      worst.darkest = std::min(worst.darkest, Value(value));
      worst.brightest = std::max(worst.brightest, Value(value));
    }
  }
  return worst;
}

std::optional<std::size_t> FirstOther(const Film& film, const std::filesystem::path& planned,
                                      const std::filesystem::path& again) {
  const SmallPictures plannedOnes(film, planned, film.shown.size());
  const SmallPictures newOnes(film, again, film.shown.size());
  for (std::size_t number = 0; number < film.shown.size(); ++number) {
    if (plannedOnes.At(number) != newOnes.At(number)) {
      return number;
    }
  }
  return std::nullopt;
}

}  // namespace animate
