#include "converter/planned_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>
#include <vector>

#include "film/failure.h"

namespace animate {
namespace {

std::string WithSize(const std::string& filter, Size size) {
  return filter + "=" + std::to_string(size.width) + ":" + std::to_string(size.height);
}

// As the converter writes colours.
std::string ColourText(Colour colour) {
  char text[16];
  std::snprintf(&text[0], sizeof(text), "0x%02X%02X%02X", colour.red, colour.green, colour.blue);
  return &text[0];
}

std::string BorderOf(const Film& film) {
  return film.freePixels == Film::FreePixels::kNone ? ColourText(film.background) : "black@0";
}

const char* TurnFilter(Turn turn) {
  switch (turn) {
    case Turn::kNone:
      break;
    case Turn::kMirror:
      return ",hflip";
    case Turn::kHalf:
      return ",hflip,vflip";
    case Turn::kMirrorHalf:
      return ",vflip";
    case Turn::kMirrorLeft:
      return ",transpose=cclock_flip";
    case Turn::kRight:
      return ",transpose=clock";
    case Turn::kMirrorRight:
      return ",transpose=clock_flip";
    case Turn::kLeft:
      return ",transpose=cclock";
  }
  return "";
}

// Whether the left side, or the upper one, of what is stored comes to lie right, or below.
bool EndsRight(Turn turn) {
  return turn == Turn::kMirror || turn == Turn::kHalf || turn == Turn::kLeft ||
         turn == Turn::kMirrorRight;
}
bool EndsBelow(Turn turn) {
  return turn == Turn::kMirrorHalf || turn == Turn::kHalf || turn == Turn::kRight ||
         turn == Turn::kMirrorRight;
}

// Spreads the colours between two values over all there are.
std::string Spread(const Levels& levels, std::uint32_t most) {
  const std::string value = "'clip(round((val-" + std::to_string(levels.low) + ")*" +
                            std::to_string(most) + "/" + std::to_string(levels.high - levels.low) +
                            "),0," + std::to_string(most) + ")'";
  return ",lutrgb=r=" + value + ":g=" + value + ":b=" + value;
}

// The colours as they are planned, in red, green and blue of 8 or 16 bits.
std::string PlannedColours(const Film& film) {
  const bool hasFree = film.freePixels != Film::FreePixels::kNone;
  const std::string usual = hasFree ? "rgba" : "rgb24";
  if (!film.isDeep || (!KeepsDepth(film) && !film.levels)) {
    return usual + (film.levels ? Spread(*film.levels, 0xFF) : "");
  }
  return (hasFree ? "rgba64le" : "rgb48le") + (film.levels ? Spread(*film.levels, 0xFFFF) : "") +
         (KeepsDepth(film) ? "" : ",format=" + usual);
}

// Puts pictures as they are stored into the middle of the canvas. What is odd in the border goes
// right and below in the picture as it is seen.
std::string Centred(const Film& film, Turn turn, bool hasSeveralTurns) {
  const Size stored = IsSideways(turn) ? Size{film.canvas.height, film.canvas.width} : film.canvas;
  const int longer = std::max(stored.width, stored.height);
  const auto middle = [](int side, const char* own, bool isOther) {
    return ":(" + std::to_string(side) + "-" + own + (isOther ? "+1)/2" : ")/2");
  };
  // The filter is made for the first of all frames, which may lie across.
  return WithSize(",pad", hasSeveralTurns ? Size{longer, longer} : stored) +
         middle(stored.width, "iw", EndsRight(turn)) +
         middle(stored.height, "ih", EndsBelow(turn)) + ":color=" + BorderOf(film) + ":eval=frame" +
         (hasSeveralTurns ? WithSize(",crop", stored) + ":0:0" : "");
}

// Brings frames that are turned alike into the canvas.
std::string OnCanvas(const Film& film, Turn turn, bool hasSeveralTurns) {
  // The first filter follows pictures whose size or form changes; others would take them for those
  // before.
  return "scale=iw:ih:eval=frame,format=" + PlannedColours(film) +
         (film.hasSeveralSizes || hasSeveralTurns ? Centred(film, turn, hasSeveralTurns) : "") +
         TurnFilter(turn);
}

// The numbers of the frames that are turned alike, as a condition on n.
std::map<Turn, std::string> Conditions(const Film& film) {
  std::map<Turn, std::string> conditions;
  const auto turnAt = [&](std::size_t number) { return film.frames[film.shown[number]].turn; };
  for (std::size_t begin = 0; begin < film.shown.size();) {
    std::size_t end = begin;
    while (end + 1 < film.shown.size() && turnAt(end + 1) == turnAt(begin)) {
      ++end;
    }
    std::string& condition = conditions[turnAt(begin)];
    condition += (condition.empty() ? "between(n," : "+between(n,") + std::to_string(begin) + "," +
                 std::to_string(end) + ")";
    begin = end + 1;
  }
  return conditions;
}

// Each frame turned as it is to be seen, all on the canvas.
std::string TurnedFrames(const Film& film) {
  const std::map<Turn, std::string> conditions = Conditions(film);
  if (conditions.size() == 1) {
    return OnCanvas(film, conditions.begin()->first, false);
  }
  // What a command line has room for.
  constexpr std::size_t kMost = 20'000;
  const std::string count = std::to_string(conditions.size());
  std::string split = "split=" + count;
  std::string branches;
  std::string together;
  for (const auto& [turn, condition] : conditions) {
    const std::string number = std::to_string(static_cast<int>(turn));
    split += "[s" + number + "]";
    branches.append(";[s").append(number).append("]select='").append(condition).append("',");
    branches.append(OnCanvas(film, turn, true)).append("[t").append(number).append("]");
    together += "[t" + number + "]";
  }
  if (branches.size() > kMost) {
    throw Failure("the frames are turned in different ways (EXIF) too often for one film");
  }
  return split + branches + ";" + together + "interleave=" + count;
}

// The largest size with the shape of `size` that is not larger than `box`.
Size Fitted(Size size, Size box) {
  const double factor = std::min(static_cast<double>(box.width) / size.width,
                                 static_cast<double>(box.height) / size.height);
  const auto side = [&](int length, int most) {
    return std::clamp(static_cast<int>(std::lround(length * factor)), 1, most);
  };
  return {side(size.width, box.width), side(size.height, box.height)};
}

}  // namespace

std::string ScaleFilter(Size size, const std::string& how) {
  // Without the last flags the colours of each two columns become one, and that of a last odd
  // column is mixed with black.
  return WithSize("scale", size) + ":flags=" + how + "+full_chroma_inp+full_chroma_int";
}

std::string LaidOn(const Colour& colour) {
  // The ground is made of the pictures themselves, so that it has their times.
  return ",split[over][under];[under]lutrgb=r=" + std::to_string(colour.red) +
         ":g=" + std::to_string(colour.green) + ":b=" + std::to_string(colour.blue) +
         ":a=255[ground];[ground][over]overlay=format=rgb,format=rgb24";
}

std::string PlannedPicture(const Film& film) {
  std::string filter = TurnedFrames(film);
  if (film.freePixels == Film::FreePixels::kLaid) {
    filter += LaidOn(film.background);
  }
  if (film.planned != film.canvas) {
    const Size fitted = Fitted(film.canvas, film.planned);
    const bool isKept = film.freePixels == Film::FreePixels::kKept;
    filter +=
        "," + ScaleFilter(fitted, "bicubic") +
        (fitted == film.planned ? ""
                                : WithSize(",pad", film.planned) + ":(ow-iw)/2:(oh-ih)/2:color=" +
                                      (isKept ? "black@0" : ColourText(film.background)));
  }
  if (film.size != film.planned) {
    filter += WithSize(",pad", film.size) +
              ":0:0,fillborders=right=" + std::to_string(film.size.width - film.planned.width) +
              ":bottom=" + std::to_string(film.size.height - film.planned.height) + ":mode=smear";
  }
  return filter + ",setsar=1";
}

}  // namespace animate
