#include "gif/gif_screen.h"

#include <algorithm>

namespace {

// How many pixels a step to `next` draws; and whether it can be made, for it can make no pixel
// transparent.
struct Cost {
  Cost(const GifScreen& screen, const GifScreen& next) {
    for (std::size_t place = 0; place < screen.size(); ++place) {
      pixels += screen[place] != next[place] ? 1 : 0;
      possible &= next[place] != kTransparentEntry || screen[place] == kTransparentEntry;
    }
  }

  bool IsBelow(const Cost& other) const { return possible && pixels < other.pixels; }

  std::size_t pixels = 0;
  bool possible = true;
};

// The smallest area that holds both.
GifArea Union(const GifArea& a, const GifArea& b) {
  if (a.width == 0 || b.width == 0) {
    return a.width == 0 ? b : a;
  }
  const int left = std::min(a.left, b.left);
  const int top = std::min(a.top, b.top);
  return {left, top, std::max(a.left + a.width, b.left + b.width) - left,
          std::max(a.top + a.height, b.top + b.height) - top};
}

// The area of the pixels that `next` wants transparent and `screen` shows otherwise.
GifArea AreaToClear(const GifScreen& screen, const GifScreen& next, int width) {
  GifScreen cleared = screen;
  for (std::size_t place = 0; place < screen.size(); ++place) {
    cleared[place] = next[place] == kTransparentEntry ? kTransparentEntry : screen[place];
  }
  return ChangedArea(screen, cleared, width);
}

int HeightOf(const GifScreen& screen, int width) {
  return static_cast<int>(screen.size()) / width;
}

GifScreen Cleared(GifScreen screen, const GifArea& area, int width) {
  for (int row = area.top; row < area.top + area.height; ++row) {
    std::fill_n(screen.begin() + std::ptrdiff_t{row} * width + area.left, area.width,
                kTransparentEntry);
  }
  return screen;
}

}  // namespace

GifArea ChangedArea(const GifScreen& before, const GifScreen& after, int width) {
  const std::ptrdiff_t columns = width;
  std::ptrdiff_t left = columns;
  std::ptrdiff_t right = 0;
  int top = 0;
  int bottom = 0;
  int row = 0;
  for (auto a = before.begin(), b = after.begin(); a != before.end(); ++row) {
    const auto end = a + columns;
    const auto first = std::mismatch(a, end, b).first;
    if (first != end) {
      const auto last = std::mismatch(std::reverse_iterator(end), std::reverse_iterator(first),
                                      std::reverse_iterator(b + columns))
                            .first.base();
      top = right == 0 ? row : top;
      bottom = row + 1;
      left = std::min(left, first - a);
      right = std::max(right, last - a);
    }
    a = end;
    b += columns;
  }
  if (right == 0) {
    return {};
  }
  return {static_cast<int>(left), top, static_cast<int>(right - left), bottom - top};
}

GifStep PlanStep(const std::shared_ptr<const GifScreen>& before,
                 const std::shared_ptr<const GifScreen>& now, const GifScreen& next, int width,
                 bool isFirst) {
  const GifArea changed =
      isFirst ? GifArea{0, 0, width, HeightOf(*now, width)} : ChangedArea(*before, *now, width);
  GifStep step = {changed, kGifLeave, now};
  Cost cost(*now, next);
  if (!cost.possible) {
    const GifArea area = Union(changed, AreaToClear(*now, next, width));
    auto cleared = std::make_shared<const GifScreen>(Cleared(*now, area, width));
    cost = Cost(*cleared, next);
    step = {area, kGifClear, cleared};
  }
  // Some programs have nothing to restore before the first picture.
  if (!isFirst && Cost(*before, next).IsBelow(cost)) {
    step = {changed, kGifRestore, before};
  }
  if (step.area.width == 0) {
    step.area = {0, 0, 1, 1};
  }
  return step;
}
