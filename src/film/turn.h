// How a stored picture is turned to be seen.
#pragma once

#include <cstdint>

namespace animate {

// By the numbers of EXIF's orientation.
enum class Turn {
  kNone = 1,
  kMirror = 2,
  kHalf = 3,
  kMirrorHalf = 4,
  kMirrorLeft = 5,
  kRight = 6,
  kMirrorRight = 7,
  kLeft = 8
};

// The turn with a number; numbers that mean none are kNone.
constexpr Turn TurnOf(std::uint32_t number) {
  return number >= 1 && number <= 8 ? static_cast<Turn>(number) : Turn::kNone;
}

// Whether width and height change places.
constexpr bool IsSideways(Turn turn) {
  return turn >= Turn::kMirrorLeft;
}

}  // namespace animate
