#include "sequence/doubt.h"

#include <algorithm>

namespace animate {
namespace {

constexpr std::size_t kShownNames = 4;
constexpr std::size_t kShownFilms = 3;

// The films that a reading tells apart: "a1.png to a9.png (9), b1.png to b9.png (9)".
std::string ShownFilms(const NameGroup& group, const Reading& reading) {
  std::string text;
  std::size_t films = 0;
  for (const ReadNames& read : reading.sequences) {
    const Arrangement& made = read.arrangement;
    for (std::size_t first = 0, last = 0; first < made.order.size(); first = last) {
      for (;
           last < made.order.size() && made.part[made.order[last]] == made.part[made.order[first]];
           ++last) {
      }
      if (++films <= kShownFilms) {
        text += (films == 1 ? "" : ", ") + group.TextOf(read.rows[made.order[first]]) + " to " +
                group.TextOf(read.rows[made.order[last - 1]]) + " (" +
                std::to_string(last - first) + ")";
      }
    }
  }
  return films == 1
             ? ""
             : std::to_string(films) + " films, " + text + (films > kShownFilms ? ", ..." : "");
}

// Some names of the order of a reading that gives one film, the first of them at `from`.
std::string ShownOrder(const NameGroup& group, const Reading& reading, std::size_t from) {
  const ReadNames& read = reading.sequences.front();
  const auto& order = read.arrangement.byNumbers;
  std::string text = from == 0 ? "" : "... ";
  for (std::size_t index = from; index < std::min(order.size(), from + kShownNames); ++index) {
    text += (index == from ? "" : ", ") + group.TextOf(read.rows[order[index]]);
  }
  return text + (from + kShownNames < order.size() ? ", ..." : "");
}

// Where the orders of two readings begin to differ; 0 when they do not.
std::size_t FirstDifference(const Reading& left, const Reading& right) {
  const auto& a = left.sequences.front().arrangement.byNumbers;
  const auto& b = right.sequences.front().arrangement.byNumbers;
  const auto differ = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
  return differ == a.end() ? 0 : static_cast<std::size_t>(differ - a.begin());
}

}  // namespace

std::string DoubtOf(const NameGroup& group, const Readings& readings) {
  if (readings.ways.size() < 2) {
    return "";
  }
  const std::size_t from = FirstDifference(readings.ways[0], readings.ways[1]);
  std::string text = "the numbers can be read in two ways";
  for (const Reading& way : readings.ways) {
    const std::string films = ShownFilms(group, way);
    text += (&way == &readings.ways.front() ? ": " : "; ") + way.label + " " +
            (films.empty() ? ShownOrder(group, way, from) : films);
  }
  return text + "; give " + readings.options;
}

}  // namespace animate
