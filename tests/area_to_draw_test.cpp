#include "gif/area_to_draw.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

// Pixels of a picture, and the next one.
class Drawing {
 public:
  Drawing(std::mt19937& random, int width, int height) : width_(width), height_(height) {
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    // Some pictures change nearly everywhere, some nearly nowhere, some show nothing later.
    const int changed = below(3) * below(40);
    const int gone = below(4) == 0 ? 5 : 0;
    for (int place = 0; place < width * height; ++place) {
      LossyPixel pixel;
      pixel.staying = 0;
      // Needs are eighths, whose sums are exact in any order.
      constexpr int kErrors[] = {3, 6, 12, 24, LossyPixel::kNever};
      pixel.weight = static_cast<float>(1 + below(2));
      pixel.isNew = below(2) == 0;
      if (below(8) == 0) {
        pixel.wanted.alpha = 0;
        pixel.drawn = LossyPixel::kNever;
      } else if (below(100) < changed) {
        pixel.staying = kErrors[below(5)];
      }
      pixels.push_back(pixel);
      const bool isGone = below(100) < gone;
      next.push_back(isGone ? Colour{0, 0, 0, 0} : Colour{9, 9, 9, 255});
    }
  }

  // The area by its definition.
  AreaToDraw Literal() const {
    AreaToDraw all;
    std::vector<float> rows(static_cast<std::size_t>(height_));
    std::vector<float> columns(static_cast<std::size_t>(width_));
    for (std::size_t place = 0; place < pixels.size(); ++place) {
      all.clears |= IsCleared(place);
      rows[place / columns.size()] += Need(place);
      columns[place % columns.size()] += Need(place);
    }
    const auto [top, bottom] = Enough(rows);
    const auto [left, right] = Enough(columns);
    if (top < bottom && left < right) {
      all.area = {left, top, right - left, bottom - top};
    }
    return all;
  }

  std::vector<LossyPixel> pixels;
  std::vector<Colour> next;

 private:
  static std::pair<int, int> Enough(const std::vector<float>& needs) {
    int first = 0;
    int end = 0;
    for (int line = 0; line < static_cast<int>(needs.size()); ++line) {
      if (needs[static_cast<std::size_t>(line)] >= 1) {
        first = end == 0 ? line : first;
        end = line + 1;
      }
    }
    return {first, end};
  }

  bool IsCleared(std::size_t place) const {
    return pixels[place].wanted.alpha != 0 && next[place].alpha == 0;
  }

  float Need(std::size_t place) const {
    const LossyPixel& pixel = pixels[place];
    const float error = static_cast<float>(pixel.staying) * pixel.weight;
    if (IsCleared(place) || error > 14) {
      return 1;
    }
    return pixel.isNew ? error / 24 : 0;
  }

  int width_;
  int height_;
};

TEST(AreaToDraw, HoldsEveryLineThatIsWorthIt) {
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    const int width = 1 + static_cast<int>(random() % 12);
    const Drawing drawing(random, width, 1 + static_cast<int>(random() % 12));
    const AreaToDraw found = FindAreaToDraw(drawing.pixels, drawing.next, width, 1);
    const AreaToDraw wanted = drawing.Literal();
    ASSERT_EQ(found.area.left, wanted.area.left) << round;
    ASSERT_EQ(found.area.top, wanted.area.top) << round;
    ASSERT_EQ(found.area.width, wanted.area.width) << round;
    ASSERT_EQ(found.area.height, wanted.area.height) << round;
    ASSERT_EQ(found.clears, wanted.clears) << round;
  }
}

}  // namespace
