// Which pixels are better drawn although they could stay as they are.
#pragma once

#include <cstddef>

// Calls `draw` with the begin and the end of each run of such pixels among those from `begin` up to
// `end`: so their colours change no more often than with a transparent run, which begins and ends.
// `stays` says whether a pixel may stay, `changes` whether its colour is another than that of the
// pixel before it.
template <typename Stays, typename Changes, typename Draw>
void ForEachRunToDraw(std::size_t begin, std::size_t end, const Stays& stays,
                      const Changes& changes, const Draw& draw) {
  constexpr int kChangesOfTransparentRun = 2;
  for (std::size_t start = begin; start < end; ++start) {
    std::size_t place = start;
    int count = 0;
    for (; place < end && stays(place); ++place) {
      count += place > begin && changes(place) ? 1 : 0;
    }
    if (place > start) {
      count += place < end && changes(place) ? 1 : 0;
      if (count <= kChangesOfTransparentRun) {
        draw(start, place);
      }
      start = place;
    }
  }
}
