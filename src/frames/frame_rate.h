// The frame rate of a run that names none.
#pragma once

// In frames per second.
inline constexpr int kDefaultFrameRate = 16;

// `frameRate` where a period can be derived from it; the default in place of a rate below 1.
constexpr int UsableFrameRate(int frameRate) {
  return frameRate < 1 ? kDefaultFrameRate : frameRate;
}
