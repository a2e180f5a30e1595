#include "gif/area_to_draw.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

// What a line has to be worth; a pixel alone has to be worth a code.
constexpr float kBitsOfLine = 24;

class AreaSearch {
 public:
  AreaSearch(std::span<const LossyPixel> pixels, std::span<const Colour> next, int width,
             float bitPrice)
      : pixels_(pixels),
        next_(next),
        bitPrice_(std::max(bitPrice, kLeastBitPrice)),
        mayClear_(!std::all_of(next.begin(), next.end(), IsOpaque)),
        width_(static_cast<std::size_t>(width)),
        needs_(width_) {}

  AreaToDraw Find() {
    std::size_t top = 0;
    std::size_t bottom = pixels_.size() / width_;
    while (top < bottom && AddNeeds(top, 0, width_) < 1) {
      ++top;
    }
    while (bottom > top + 1 && AddNeeds(bottom - 1, 0, width_) < 1) {
      --bottom;
    }
    for (std::size_t row = top + 1; row + 1 < bottom; ++row) {
      // Only what may widen the area is looked at, but for what must be cleared.
      const std::size_t left = mayClear_ ? width_ : Left();
      AddNeeds(row, 0, left);
      AddNeeds(row, std::max(left, Right()), width_);
    }
    if (top >= bottom || Left() >= Right()) {
      return {};
    }
    const auto side = [](std::size_t begin, std::size_t end) {
      return static_cast<int>(end - begin);
    };
    return {{side(0, Left()), side(0, top), side(Left(), Right()), side(top, bottom)}, clears_};
  }

 private:
  // The first column that has enough need to be drawn, and the one after the last.
  std::size_t Left() const {
    return static_cast<std::size_t>(std::find_if(needs_.begin(), needs_.end(), IsEnough) -
                                    needs_.begin());
  }
  std::size_t Right() const {
    return static_cast<std::size_t>(needs_.rend() -
                                    std::find_if(needs_.rbegin(), needs_.rend(), IsEnough));
  }
  static bool IsEnough(float need) { return need >= 1; }

  // Adds what some pixels of a row are worth, 1 for a frame's growth, to that of their columns.
  // Returns what they are worth together.
  float AddNeeds(std::size_t row, std::size_t begin, std::size_t end) {
    float sum = 0;
    for (std::size_t column = begin; column < end; ++column) {
      const std::size_t place = row * width_ + column;
      const float need = MustBeCleared(place) ? 1 : NeedOf(pixels_[place]);
      sum += need;
      needs_[column] += need;
    }
    return sum;
  }

  bool MustBeCleared(std::size_t place) {
    const bool clear = mayClear_ && IsOpaque(pixels_[place].wanted) && !IsOpaque(next_[place]);
    clears_ |= clear;
    return clear;
  }

  float NeedOf(const LossyPixel& pixel) const {
    if (pixel.staying == 0) {
      return 0;
    }
    const float error = static_cast<float>(pixel.staying - pixel.Least()) * pixel.weight;
    if (error > kBitsOfCode * bitPrice_) {
      return 1;
    }
    return pixel.isNew ? error / (kBitsOfLine * bitPrice_) : 0;
  }

  std::span<const LossyPixel> pixels_;
  std::span<const Colour> next_;
  float bitPrice_;
  bool mayClear_;
  std::size_t width_;
  // Of each column, as far as it was looked at.
  std::vector<float> needs_;
  bool clears_ = false;
};

}  // namespace

AreaToDraw FindAreaToDraw(std::span<const LossyPixel> pixels, std::span<const Colour> next,
                          int width, float bitPrice) {
  return AreaSearch(pixels, next, width, bitPrice).Find();
}
